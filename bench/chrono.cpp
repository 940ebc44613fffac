// Times a whole process: the best of several runs, with the processor time and the peak memory of that run.
//
//   quelvar-chrono FOIS AVANT COMMANDE ARGUMENTS...
//
// AVANT is a shell command that restores the files before each run ("" for none). Prints one line:
// wall, user and system seconds, peak memory in MiB, separated by blanks. The command's output is dropped.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

struct Mesure {
  double mur = 0, utilisateur = 0, systeme = 0, mebioctets = 0;
};

double Secondes(const timeval& t) { return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec); }

bool Mesurer(char** commande, Mesure& mesure) {
  const auto debut = std::chrono::steady_clock::now();
  const pid_t enfant = fork();
  if (enfant == 0) {
    const int nul = open("/dev/null", O_WRONLY);
    dup2(nul, STDOUT_FILENO);
    execvp(commande[0], commande);
    _exit(127);
  }
  int etat = 0;
  rusage usage{};
  if (wait4(enfant, &etat, 0, &usage) < 0 || !WIFEXITED(etat) || WEXITSTATUS(etat) != 0) return false;
  mesure.mur = std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
  mesure.utilisateur = Secondes(usage.ru_utime);
  mesure.systeme = Secondes(usage.ru_stime);
  mesure.mebioctets = static_cast<double>(usage.ru_maxrss) / 1024;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  Mesure meilleure;
  for (int i = 0; i < std::atoi(argv[1]); ++i) {
    if (argv[2][0] != '\0' && std::system(argv[2]) != 0) return 1;
    Mesure mesure;
    if (!Mesurer(argv + 3, mesure)) {
      std::fprintf(stderr, "the command failed: %s\n", argv[3]);
      return 1;
    }
    if (i == 0 || mesure.mur < meilleure.mur) meilleure = mesure;
  }
  std::printf("%.6f %.6f %.6f %.0f\n", meilleure.mur, meilleure.utilisateur, meilleure.systeme, meilleure.mebioctets);
  return 0;
}
