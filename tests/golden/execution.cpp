#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>

#include "core/fichiers/fichiers.h"
#include "golden/cas.h"
#include "support/environnement.h"

namespace fs = std::filesystem;

namespace golden {

using quelvar::LireOctets;

namespace {

constexpr unsigned kDureeMaximale = 60;  // seconds of real time for one run
constexpr const char* kHorloge = "2017-05-02 14:30:00";

std::vector<std::string> EnvironnementFixe(const fs::path& maison) {
  std::vector<std::string> variables = {"TZ=UTC0", "LC_ALL=C", "PATH=/usr/bin:/bin", "HOME=" + maison.string()};
  for (const char* transmise : {"ASAN_OPTIONS", "UBSAN_OPTIONS"}) {
    if (const char* valeur = std::getenv(transmise)) variables.push_back(std::string(transmise) + "=" + valeur);
  }
  return variables;
}

std::vector<char*> Pointeurs(std::vector<std::string>& textes) {
  std::vector<char*> pointeurs;
  for (std::string& texte : textes) pointeurs.push_back(texte.data());
  pointeurs.push_back(nullptr);
  return pointeurs;
}

void Rediriger(const fs::path& fichier, int descripteur, int mode) {
  const int ouvert = open(fichier.c_str(), mode, 0600);
  if (ouvert < 0 || dup2(ouvert, descripteur) < 0) _exit(127);
  close(ouvert);
}

// Runs one command in the directory; standard output and error are appended to two files.
int Lancer(std::vector<std::string> arguments, const fs::path& dossier, const fs::path& clavier, const fs::path& sortie,
           const fs::path& boites) {
  std::vector<std::string> variables = EnvironnementFixe(dossier.parent_path());
  const auto argv = Pointeurs(arguments);
  const auto envp = Pointeurs(variables);
  const pid_t enfant = fork();
  if (enfant < 0) throw std::runtime_error("fork failed");
  if (enfant == 0) {
    alarm(kDureeMaximale);  // kept through execve: a run that hangs is killed
    if (chdir(dossier.c_str()) != 0) _exit(127);
    Rediriger(clavier, STDIN_FILENO, O_RDONLY);
    Rediriger(sortie, STDOUT_FILENO, O_WRONLY | O_CREAT | O_APPEND);
    Rediriger(boites, STDERR_FILENO, O_WRONLY | O_CREAT | O_APPEND);
    execve(argv[0], argv.data(), envp.data());
    _exit(127);
  }
  int etat = 0;
  if (waitpid(enfant, &etat, 0) < 0) throw std::runtime_error("waitpid failed");
  return WIFEXITED(etat) ? WEXITSTATUS(etat) : -WTERMSIG(etat);
}

}  // namespace

Constat ExecuterCas(const Cas& cas, const fs::path& programme) {
  const essai::DossierTemporaire scratch;
  const fs::path travail = scratch.Chemin() / "travail";
  const fs::path sortie = scratch.Chemin() / "sortie";
  const fs::path boites = scratch.Chemin() / "boites";
  const fs::path clavier =
      fs::exists(cas.dossier / "clavier") ? fs::absolute(cas.dossier / "clavier") : fs::path("/dev/null");
  fs::create_directory(travail);
  if (fs::exists(cas.dossier / "entree")) fs::copy(cas.dossier / "entree", travail, fs::copy_options::recursive);

  Constat constat;
  for (const Execution& execution : cas.executions) {
    std::vector<std::string> arguments = {programme.string(), "--horloge", kHorloge};
    arguments.insert(arguments.end(), execution.arguments.begin(), execution.arguments.end());
    constat.statuts.push_back(Lancer(std::move(arguments), travail, clavier, sortie, boites));
  }
  constat.sortie = LireOctets(sortie);
  constat.boites = LireOctets(boites);
  for (const auto& entree : fs::recursive_directory_iterator(travail)) {
    if (entree.is_regular_file()) constat.fichiers[fs::relative(entree.path(), travail).string()] = LireOctets(entree);
  }
  return constat;
}

}  // namespace golden
