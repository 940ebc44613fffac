// Writes a large survey for measurements: fixed columns with dictionary and labels, or the same table as CSV
// or dBase.
//
//   quelvar-genere DIR GENERIQUE INDIVIDUS QUESTIONS [--csv | --dbf | --actives CODEMAX]
//
// With --actives every question has that code-max, is marked as active, and the file has no labels.
// Eight latent classes make the answers depend on each other; about 3 % are non-responses. The same arguments
// always give the same bytes.
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kClasses = 8;
constexpr int kPositionMaximale = 9999;   // four columns of the dictionary
constexpr std::size_t kTampon = 1 << 20;  // bytes written at once
// Of 1,024 answers: those that are none, and those below which the favourite of the class is given.
constexpr std::uint32_t kNonReponses = 31;
constexpr std::uint32_t kFavoris = 543;

struct Question {
  std::string nom;
  int codeMax = 0;
  int largeur = 1;
  int position = 0;
  std::array<int, kClasses> codeFavori{};
};

struct Fermeture {
  void operator()(std::FILE* f) const { std::fclose(f); }
};
using Fichier = std::unique_ptr<std::FILE, Fermeture>;

// Knuth's 64-bit linear congruential generator (MMIX); only its upper bits are used.
class Hasard {
 public:
  std::uint32_t Suivant() {
    etat_ = etat_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(etat_ >> 32);
  }

 private:
  std::uint64_t etat_ = 20030501;
};

// What the position files of the measurements differ in.
struct Modele {
  int codeMax = 0;  // of every question; 0 for a mixture
};

int CodeMaxDe(int rang, const Modele& modele) {
  if (modele.codeMax > 0) return modele.codeMax;
  switch (rang % 25) {
    case 3: return 2;
    case 7: return 3;
    case 11: return 9;
    case 9:
    case 17: return 12 + rang * 7 % 29;
    default: return 5;
  }
}

std::vector<Question> FaireQuestions(int nombre, const Modele& modele) {
  static constexpr char kSignes[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::vector<Question> questions;
  int position = 1;
  for (int i = 0; i < nombre; ++i) {
    Question q;
    q.nom = {static_cast<char>('A' + i / 1296 % 26), kSignes[i / 36 % 36], kSignes[i % 36]};
    q.codeMax = CodeMaxDe(i, modele);
    q.largeur = q.codeMax > 9 ? 2 : 1;
    q.position = position;
    position += q.largeur;
    for (int k = 0; k < kClasses; ++k) {
      q.codeFavori[static_cast<std::size_t>(k)] = 1 + (k * 31 + i * 17 + k * i % 7) % q.codeMax;
    }
    questions.push_back(q);
  }
  return questions;
}

// One answer: 3 % nothing, half of the time the favourite of the class, else any code.
int Repondre(const Question& q, std::size_t classe, Hasard& hasard) {
  const std::uint32_t tirage = hasard.Suivant();
  const std::uint32_t cas = tirage >> 22;  // 0..1023
  if (cas < kNonReponses) return 0;
  if (cas < kFavoris) return q.codeFavori[classe];
  return 1 + static_cast<int>((std::uint64_t{tirage & 0x3FFFFF} * static_cast<std::uint32_t>(q.codeMax)) >> 22);
}

Fichier Ouvrir(const std::string& nom) {
  Fichier f(std::fopen(nom.c_str(), "wb"));
  if (!f) {
    std::fprintf(stderr, "cannot write %s\n", nom.c_str());
    std::exit(1);
  }
  return f;
}

char* EcrireCode(char* p, int code, int largeur) {
  if (largeur == 2) *p++ = code > 9 ? static_cast<char>('0' + code / 10) : ' ';
  *p++ = static_cast<char>('0' + code % 10);
  return p;
}

// A code without padding, nothing for a non-response.
char* EcrireCellule(char* p, int code) {
  if (code > 9) *p++ = static_cast<char>('0' + code / 10);
  if (code > 0) *p++ = static_cast<char>('0' + code % 10);
  return p;
}

enum class Forme { Dat, Csv, Dbf };

// Header and field descriptions of a dBase III file.
std::string EnteteDbf(const std::vector<Question>& questions, long long individus) {
  const auto mot = [](std::size_t n) {
    return std::string{static_cast<char>(n & 255), static_cast<char>(n >> 8 & 255)};
  };
  const auto nombre = static_cast<std::size_t>(individus);
  const auto longueur = static_cast<std::size_t>(questions.back().position + questions.back().largeur);
  std::string entete = "\x03" + std::string(3, '\0') + mot(nombre) + mot(nombre >> 16) +
                       mot(33 + 32 * questions.size()) + mot(longueur) + std::string(20, '\0');
  for (const Question& q : questions)
    entete += q.nom + std::string(8, '\0') + "N" + std::string(4, '\0') + static_cast<char>(q.largeur) +
              std::string(15, '\0');
  return entete + "\r";
}

void EcrireIndividus(const std::string& nom, const std::string& entete, const std::vector<Question>& questions,
                     long long individus, Forme forme) {
  const bool csv = forme == Forme::Csv;
  const Fichier f = Ouvrir(nom);
  std::fwrite(entete.data(), 1, entete.size(), f.get());
  std::vector<char> tampon(kTampon + questions.size() * 3 + 32);
  char* p = tampon.data();
  Hasard hasard;
  for (long long n = 1; n <= individus; ++n) {
    const std::size_t classe = hasard.Suivant() >> 29;
    if (csv) p = std::to_chars(p, p + 24, n).ptr;
    if (forme == Forme::Dbf) *p++ = ' ';
    for (const Question& q : questions) {
      const int code = Repondre(q, classe, hasard);
      if (csv) *p++ = ';';
      p = csv ? EcrireCellule(p, code) : EcrireCode(p, code, q.largeur);
    }
    if (forme != Forme::Dbf) {
      *p++ = '\r';
      *p++ = '\n';
    }
    if (const auto pleins = static_cast<std::size_t>(p - tampon.data()); pleins >= kTampon || n == individus) {
      std::fwrite(tampon.data(), 1, pleins, f.get());
      p = tampon.data();
    }
  }
}

void EcrirePos(const std::string& base, const std::string& generique, const std::vector<Question>& questions,
               long long individus, const Modele& modele) {
  const Fichier f = Ouvrir(base + ".POS");
  std::fprintf(f.get(), "%s\r\n %lld \r\n", generique.c_str(), individus);
  for (const Question& q : questions) {
    std::fprintf(f.get(), "%s%4d%2d $Question %s$%s\r\n", q.nom.c_str(), q.position, q.codeMax, q.nom.c_str(),
                 modele.codeMax > 0 ? " &ACT&" : "");
  }
}

void EcrireMod(const std::string& base, const std::string& generique, const std::vector<Question>& questions) {
  const Fichier f = Ouvrir(base + ".MOD");
  std::fprintf(f.get(), "%s\r\n FMT=7 \r\n", generique.c_str());
  for (const Question& q : questions) {
    for (int code = 1; code <= q.codeMax && code < 36; ++code) {
      const char signe = static_cast<char>(code < 10 ? '0' + code : 'A' + code - 10);
      std::fprintf(f.get(), "%s%c   rep. %d\r\n", q.nom.c_str(), signe, code);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool csv = argc == 6 && std::strcmp(argv[5], "--csv") == 0;
  const bool dbf = argc == 6 && std::strcmp(argv[5], "--dbf") == 0;
  const bool actives = argc == 7 && std::strcmp(argv[5], "--actives") == 0;
  const Modele modele{actives ? std::atoi(argv[6]) : 0};
  const long long individus = argc > 3 ? std::atoll(argv[3]) : 0;
  const int nombre = argc > 4 ? std::atoi(argv[4]) : 0;
  if ((argc != 5 && !csv && !dbf && !actives) || individus < 1 || nombre < 1 || modele.codeMax < 0 ||
      modele.codeMax > 99) {
    std::fprintf(stderr,
                 "usage: quelvar-genere DIR GENERIQUE INDIVIDUS QUESTIONS [--csv | --dbf | --actives CODEMAX]\n");
    return 2;
  }
  const std::string generique = argv[2];
  const std::string base = std::string(argv[1]) + "/" + generique;
  const std::vector<Question> questions = FaireQuestions(nombre, modele);
  if (!csv && questions.back().position + 1 > kPositionMaximale) {
    std::fprintf(stderr, "too many questions for the dictionary: the last position is above %d\n", kPositionMaximale);
    return 2;
  }
  if (csv) {
    std::string titres = "NUM";
    for (const Question& q : questions) titres += ";" + q.nom + " Question";
    EcrireIndividus(base + ".CSV", titres + "\r\n", questions, individus, Forme::Csv);
  } else if (dbf) {
    EcrireIndividus(base + ".DBF", EnteteDbf(questions, individus), questions, individus, Forme::Dbf);
  } else {
    EcrireIndividus(base + ".DAT", "", questions, individus, Forme::Dat);
    EcrirePos(base, generique, questions, individus, modele);
    if (!actives) EcrireMod(base, generique, questions);
  }
  return 0;
}
