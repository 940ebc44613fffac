#include "core/fichiers/systeme/lecture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "core/fichiers/systeme/echecs.h"
#include "core/fichiers/systeme/lignelongue.h"
#include "core/fichiers/systeme/marque.h"
#include "core/panne/annonce.h"

namespace quelvar {

namespace {

constexpr std::size_t kTamponLecture = std::size_t{1} << 18;

int Ouvrir(const Chemin& chemin, int drapeaux) {
  const int descripteur = ::open(chemin.c_str(), drapeaux | O_CLOEXEC, 0666);
  if (descripteur < 0) LeverErrno(chemin, errno);
  return descripteur;
}

// A pipe or a device may have no end, and opening one may never come back.
int OuvrirEnLecture(const Chemin& chemin) {
  const int descripteur = Ouvrir(chemin, O_RDONLY | O_NONBLOCK);
  struct stat etat {};
  if (::fstat(descripteur, &etat) == 0 && S_ISREG(etat.st_mode)) {
    try {
      VerifierMarque(descripteur, chemin);
      return descripteur;
    } catch (...) {
      ::close(descripteur);
      throw;
    }
  }
  ::close(descripteur);
  throw PasUnFichier(chemin);
}

// Bytes read, 0 at the end of the file.
std::size_t LireDirect(const Chemin& chemin, int descripteur, char* place, std::size_t taille) {
  for (;;) {
    const ssize_t lus = ::read(descripteur, place, taille);
    if (lus >= 0) return static_cast<std::size_t>(lus);
    if (errno != EINTR) LeverErrno(chemin, errno);
  }
}

}  // namespace

std::string LireOctets(const Chemin& chemin) {
  const int descripteur = OuvrirEnLecture(chemin);
  const std::unique_ptr<const int, void (*)(const int*)> fermeture(&descripteur, [](const int* d) { ::close(*d); });
  std::string octets;
  std::size_t lus = 0;
  do {
    const std::size_t avant = octets.size();
    octets.resize(avant + kTamponLecture);
    lus = LireDirect(chemin, descripteur, octets.data() + avant, kTamponLecture);
    octets.resize(avant + lus);
  } while (lus > 0);
  return octets;
}

std::string LireMorceau(const Chemin& chemin, std::uintmax_t debut, std::size_t taille) {
  const int descripteur = OuvrirEnLecture(chemin);
  const std::unique_ptr<const int, void (*)(const int*)> fermeture(&descripteur, [](const int* d) { ::close(*d); });
  std::string octets(taille, '\0');
  std::size_t lus = 0;
  while (lus < taille) {
    const ssize_t suite = ::pread(descripteur, octets.data() + lus, taille - lus, static_cast<off_t>(debut + lus));
    if (suite < 0 && errno == EINTR) continue;
    if (suite < 0) LeverErrno(chemin, errno);
    if (suite == 0) break;
    lus += static_cast<std::size_t>(suite);
  }
  octets.resize(lus);
  return octets;
}

LecteurLignes::LecteurLignes(const Chemin& chemin)
    : nom_(chemin.filename().native()),
      descripteur_(OuvrirEnLecture(chemin)),
      tampon_(new char[kTamponLecture]),
      capacite_(kTamponLecture) {}

LecteurLignes::~LecteurLignes() {
  if (descripteur_ >= 0) ::close(descripteur_);
}

LecteurLignes::LecteurLignes(LecteurLignes&& autre) noexcept { *this = std::move(autre); }

LecteurLignes& LecteurLignes::operator=(LecteurLignes&& autre) noexcept {
  std::swap(nom_, autre.nom_);
  std::swap(numero_, autre.numero_);
  std::swap(descripteur_, autre.descripteur_);
  std::swap(finie_, autre.finie_);
  std::swap(tampon_, autre.tampon_);
  std::swap(capacite_, autre.capacite_);
  std::swap(debut_, autre.debut_);
  std::swap(fin_, autre.fin_);
  return *this;
}

void RefuserLigneTropLongue(std::string_view nom) {
  throw Erreur(kMemoireInsuffisante,
               Joindre({kArretDuProgrammeSansAccents, nom, " a une ligne de plus de ",
                        std::to_string(LecteurLignes::kLigneAuPlus), " octets, ce n'est pas un fichier de texte"}));
}

void ExigerLignesCourtes(std::string_view octets, std::string_view nom) {
  while (octets.size() > LecteurLignes::kLigneAuPlus) {
    const std::size_t saut = octets.find('\n');
    const std::size_t fin = std::min(saut, octets.size());
    if (fin > LecteurLignes::kLigneAuPlus + (fin > 0 && octets[fin - 1] == '\r' ? 1 : 0)) RefuserLigneTropLongue(nom);
    if (saut == std::string_view::npos) return;
    octets.remove_prefix(saut + 1);
  }
}

// Brings more bytes behind those not given yet; false when the file has no more.
bool LecteurLignes::Remplir() {
  if (finie_) return false;
  if (debut_ > 0) {
    std::memmove(tampon_.get(), tampon_.get() + debut_, fin_ - debut_);
    fin_ -= debut_;
    debut_ = 0;
  }
  if (fin_ == capacite_) {
    constexpr std::size_t kFinDeLigne = 2;  // CR LF behind the longest line
    if (capacite_ == kLigneAuPlus + kFinDeLigne) RefuserLigneTropLongue(NomDepuisUtf8(nom_));
    const std::size_t capacite = std::min(capacite_ * 2, kLigneAuPlus + kFinDeLigne);
    std::unique_ptr<char[]> plusGrand(new char[capacite]);
    std::memcpy(plusGrand.get(), tampon_.get(), fin_);
    tampon_ = std::move(plusGrand);
    capacite_ = capacite;
  }
  const std::size_t lus = LireDirect(nom_, descripteur_, tampon_.get() + fin_, capacite_ - fin_);
  fin_ += lus;
  finie_ = lus == 0;
  return !finie_;
}

bool LecteurLignes::Lire(std::string_view& ligne) {
  std::size_t examines = 0;
  for (;;) {
    const char* debut = tampon_.get() + debut_;
    const std::size_t disponibles = fin_ - debut_;
    if (const void* saut = std::memchr(debut + examines, '\n', disponibles - examines)) {
      const auto longueur = static_cast<std::size_t>(static_cast<const char*>(saut) - debut);
      debut_ += longueur + 1;
      ++numero_;
      ligne = std::string_view(debut, longueur > 0 && debut[longueur - 1] == '\r' ? longueur - 1 : longueur);
      return true;
    }
    examines = disponibles;
    if (!Remplir()) return LireLaFin(ligne);
  }
}

// The last line, which no line feed ends.
bool LecteurLignes::LireLaFin(std::string_view& ligne) {
  std::string_view reste(tampon_.get() + debut_, fin_ - debut_);
  debut_ = fin_;
  if (!reste.empty() && reste.back() == '\x1A') reste.remove_suffix(1);
  if (reste.empty()) return false;
  if (reste.back() == '\r') reste.remove_suffix(1);
  ligne = reste;
  ++numero_;
  return true;
}

std::string_view LecteurLignes::LireObligatoire() {
  std::string_view ligne;
  if (!Lire(ligne)) throw Erreur(kFinDeFichierDepassee).Situer(Ou());
  return ligne;
}

}  // namespace quelvar
