// The floors that the programs are measured against: the least work that any program on the same file must do.
//
//   quelvar-plancher dat BASE      reads BASE.POS, decodes and counts every field of BASE.DAT, prints nothing
//   quelvar-plancher octets FILE   one look at every byte of a file: counts lines and separators, prints nothing
//
// No error is handled and no odd line allowed for: this is what a careless C program would cost.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kTampon = 1 << 18;

struct Champ {
  std::size_t position;  // from 0
  int largeur;
};

std::vector<Champ> LirePos(const std::string& nom) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> f(std::fopen(nom.c_str(), "rb"), std::fclose);
  std::vector<Champ> champs;
  if (!f) return champs;
  std::array<char, 512> ligne{};
  for (int n = 1; std::fgets(ligne.data(), static_cast<int>(ligne.size()), f.get()) != nullptr; ++n) {
    if (n < 3 || std::strlen(ligne.data()) < 9) continue;
    const std::string position(ligne.data() + 3, 4);
    const std::string codeMax(ligne.data() + 7, 2);
    champs.push_back(
        {static_cast<std::size_t>(std::atoi(position.c_str()) - 1), std::atoi(codeMax.c_str()) > 9 ? 2 : 1});
  }
  return champs;
}

// A digit, or 0 for a blank: both stand in the lower half of the byte.
unsigned Chiffre(char c) { return static_cast<unsigned>(c) & 15U; }

void CompterLigne(const char* ligne, const std::vector<Champ>& champs,
                  std::vector<std::array<unsigned, 128>>& effectifs) {
  for (std::size_t q = 0; q < champs.size(); ++q) {
    const char* p = ligne + champs[q].position;
    const unsigned v = champs[q].largeur == 1 ? Chiffre(p[0]) : Chiffre(p[0]) * 10 + Chiffre(p[1]);
    ++effectifs[q][v & 127U];
  }
}

long CompterDat(const std::string& base) {
  const std::vector<Champ> champs = LirePos(base + ".POS");
  std::vector<std::array<unsigned, 128>> effectifs(champs.size());
  const int f = open((base + ".DAT").c_str(), O_RDONLY);
  if (f < 0) std::exit(1);
  std::vector<char> tampon(2 * kTampon);
  std::size_t reste = 0;
  for (ssize_t lus = 0; (lus = read(f, tampon.data() + reste, kTampon)) > 0;) {
    const char* p = tampon.data();
    const char* fin = p + reste + lus;
    while (const void* lf = std::memchr(p, '\n', static_cast<std::size_t>(fin - p))) {
      CompterLigne(p, champs, effectifs);
      p = static_cast<const char*>(lf) + 1;
    }
    reste = static_cast<std::size_t>(fin - p);
    std::memmove(tampon.data(), p, reste);
  }
  close(f);
  return effectifs.empty() ? 0 : effectifs[0][1];
}

long CompterOctets(const char* nom) {
  const int f = open(nom, O_RDONLY);
  struct stat etat {};
  if (f < 0 || fstat(f, &etat) != 0) std::exit(1);
  const auto taille = static_cast<std::size_t>(etat.st_size);
  const void* carte = mmap(nullptr, taille, PROT_READ, MAP_PRIVATE, f, 0);
  if (carte == MAP_FAILED) std::exit(1);
  const char* p = static_cast<const char*>(carte);
  long lignes = 0, separateurs = 0;
  for (std::size_t i = 0; i < taille; ++i) {
    lignes += p[i] == '\n' ? 1 : 0;
    separateurs += p[i] == ';' ? 1 : 0;
  }
  return lignes + separateurs;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const bool dat = std::strcmp(argv[1], "dat") == 0;
  // A volatile result keeps the compiler from leaving the work out.
  [[maybe_unused]] const volatile long temoin = dat ? CompterDat(argv[2]) : CompterOctets(argv[2]);
  return 0;
}
