#include "core/fichiers/fichiers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include "core/fichiers/provisoire.h"
#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/condense.h"
#include "core/fichiers/systeme/echecs.h"
#include "core/fichiers/systeme/lignelongue.h"
#include "core/fichiers/systeme/marque.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace fs = std::filesystem;

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

int OuvrirEnEcriture(const Chemin& chemin, ModeEcriture mode) {
  const int place = mode == ModeEcriture::Neuf ? O_TRUNC : O_APPEND;
  const int descripteur = ::open(chemin.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | place, 0666);
  if (descripteur < 0) LeverErrnoDeCreation(chemin, errno);
  return descripteur;
}

// Bytes read, 0 at the end of the file.
std::size_t LireDirect(const Chemin& chemin, int descripteur, char* place, std::size_t taille) {
  for (;;) {
    const ssize_t lus = ::read(descripteur, place, taille);
    if (lus >= 0) return static_cast<std::size_t>(lus);
    if (errno != EINTR) LeverErrno(chemin, errno);
  }
}

std::optional<Chemin> ChercherComposant(const Chemin& repertoire, const Chemin& composant) {
  std::error_code code;
  Chemin exact = repertoire / composant;
  if (fs::exists(fs::symlink_status(exact, code))) return exact;

  const std::string voulu = TexteDe(composant);
  std::optional<std::string> trouve;
  for (fs::directory_iterator i(repertoire.empty() ? Chemin(".") : repertoire, code), fin; !code && i != fin;
       i.increment(code)) {
    std::string nom = i->path().filename().native();
    if (EgalSansCasse(NomDepuisUtf8(nom), voulu) && (!trouve || nom < *trouve)) trouve = std::move(nom);
  }
  if (!trouve) return std::nullopt;
  return repertoire / *trouve;
}

}  // namespace

Chemin CheminDe(std::string_view texte) { return Chemin(VersUtf8(texte)); }
std::string TexteDe(const Chemin& chemin) { return NomDepuisUtf8(chemin.native()); }

std::optional<Chemin> ChercherFichier(const Chemin& repertoire, std::string_view nom) {
  if (nom.empty()) return std::nullopt;
  const Chemin demande = CheminDe(nom);
  Chemin trouve = demande.is_absolute() ? Chemin() : repertoire;
  for (const Chemin& composant : demande) {
    if (composant.empty()) continue;
    if (composant == demande.root_directory() || composant == "." || composant == "..") {
      trouve /= composant;
      continue;
    }
    std::optional<Chemin> suite = ChercherComposant(trouve, composant);
    if (!suite) return std::nullopt;
    trouve = std::move(*suite);
  }
  return trouve;
}

Chemin CheminDEcriture(const Chemin& repertoire, std::string_view nom) {
  if (std::optional<Chemin> existant = ChercherFichier(repertoire, nom)) return *existant;
  return repertoire / CheminDe(nom);
}

bool EstLeMemeFichier(const Chemin& a, const Chemin& b) {
  std::error_code absent;
  return fs::equivalent(a, b, absent);
}

std::uintmax_t LongueurFichier(const Chemin& chemin) {
  struct stat etat {};
  if (::stat(chemin.c_str(), &etat) != 0) LeverErrno(chemin, errno);
  if (!S_ISREG(etat.st_mode)) throw PasUnFichier(chemin);
  return static_cast<std::uintmax_t>(etat.st_size);
}

void EffacerFichier(const Chemin& chemin) {
  if (::unlink(chemin.c_str()) != 0 && errno != ENOENT) LeverErrno(chemin, errno);
}

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

Erreur EchecDuFichier(const Chemin& chemin, int numero) {
  return Erreur(numero).Situer({.fichier = TexteDe(chemin.filename())});
}

void LeverErrno(const Chemin& chemin, int codeErrno) { throw EchecDuFichier(chemin, NumeroDErrno(codeErrno)); }

void LeverErrnoDeCreation(const Chemin& chemin, int codeErrno) {
  if (codeErrno == ENOENT) throw EchecDuFichier(chemin, kCheminIntrouvable);
  LeverErrno(chemin, codeErrno);
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
               Joindre({"*** Arret du programme : ", nom, " a une ligne de plus de ",
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

Ecrivain::Ecrivain(const Chemin& chemin, ModeEcriture mode)
    : chemin_(chemin), descripteur_(OuvrirEnEcriture(chemin, mode)), tampon_(new char[kCapacite]) {}

Ecrivain::Ecrivain(Chemin chemin, int descripteur, CondenseDOctets* condense)
    : chemin_(std::move(chemin)), descripteur_(descripteur), condense_(condense), tampon_(new char[kCapacite]) {}

Ecrivain::~Ecrivain() {
  if (descripteur_ < 0) return;
  try {
    Fermer();
  } catch (const Erreur&) {  // nobody is left to hear it
  }
}

Ecrivain::Ecrivain(Ecrivain&& autre) noexcept { *this = std::move(autre); }

Ecrivain& Ecrivain::operator=(Ecrivain&& autre) noexcept {
  std::swap(chemin_, autre.chemin_);
  std::swap(descripteur_, autre.descripteur_);
  std::swap(condense_, autre.condense_);
  std::swap(texte_, autre.texte_);
  std::swap(tampon_, autre.tampon_);
  std::swap(rempli_, autre.rempli_);
  return *this;
}

void Ecrivain::EcrireParMorceaux(std::string_view octets) {
  Vider();
  if (octets.size() >= kCapacite) {
    EcrireDirect(octets.data(), octets.size());
  } else {
    octets.copy(tampon_.get(), octets.size());
    rempli_ = octets.size();
  }
}

void Ecrivain::EcrireDirect(const char* octets, std::size_t taille) {
  if (texte_ != nullptr) {
    texte_->append(octets, taille);
    return;
  }
  if (condense_ != nullptr) condense_->Ajouter({octets, taille});
  while (taille > 0) {
    const ssize_t ecrits = appels::Ecrire(descripteur_, octets, taille);
    if (ecrits < 0 && errno == EINTR) continue;
    if (ecrits < 0) LeverErrno(chemin_, errno);
    octets += ecrits;
    taille -= static_cast<std::size_t>(ecrits);
  }
}

void Ecrivain::Vider() {
  // Whatever happens to these bytes, they are not written twice.
  const std::size_t taille = std::exchange(rempli_, 0);
  EcrireDirect(tampon_.get(), taille);
}

void Ecrivain::Fermer() {
  if (texte_ != nullptr) return Vider();
  if (descripteur_ < 0) return;
  int code = 0;
  try {
    Vider();
  } catch (...) {
    ::close(std::exchange(descripteur_, -1));
    throw;
  }
  if (appels::Fermer(std::exchange(descripteur_, -1)) != 0) code = errno;
  if (code != 0) LeverErrno(chemin_, code);
}

FichierDeTravail::FichierDeTravail(const Chemin& chemin) : voisin_(chemin) {
  const Chemin nom = NomProvisoire(chemin);
  descripteur_ = appels::Creer(nom.c_str());
  if (descripteur_ < 0) LeverErrnoDeCreation(chemin, errno);
  ::unlink(nom.c_str());
}

FichierDeTravail::~FichierDeTravail() { ::close(descripteur_); }

void FichierDeTravail::Lire(std::uint64_t place, void* octets, std::size_t taille) const {
  for (char* suite = static_cast<char*>(octets); taille > 0;) {
    const ssize_t lus = ::pread(descripteur_, suite, taille, static_cast<off_t>(place));
    if (lus < 0 && errno == EINTR) continue;
    if (lus < 0) LeverErrno(voisin_, errno);
    if (lus == 0) throw EchecDuFichier(voisin_, kFinDeFichierDepassee);
    suite += lus;
    place += static_cast<std::uint64_t>(lus);
    taille -= static_cast<std::size_t>(lus);
  }
}

void FichierDeTravail::Ecrire(std::uint64_t place, const void* octets, std::size_t taille) {
  for (const char* suite = static_cast<const char*>(octets); taille > 0;) {
    const ssize_t ecrits = ::pwrite(descripteur_, suite, taille, static_cast<off_t>(place));
    if (ecrits < 0 && errno == EINTR) continue;
    if (ecrits < 0) LeverErrno(voisin_, errno);
    suite += ecrits;
    place += static_cast<std::uint64_t>(ecrits);
    taille -= static_cast<std::size_t>(ecrits);
  }
}

Remplacement::Remplacement(const Chemin& repertoire, std::string_view nom, Nature nature)
    : Remplacement(CheminDEcriture(repertoire, nom), nature) {}

Remplacement::Remplacement(const Chemin& cible, Nature nature) : fichier_(new Provisoire(cible, nature)) {}

Remplacement::~Remplacement() = default;

Ecrivain& Remplacement::Fichier() { return fichier_->Fichier(); }

void Remplacement::Valider() {
  fichier_->Achever();
  fichier_->Tenir();
  if (fichier_->SaNature() == Nature::Unique) fichier_->Synchroniser();
  fichier_->Placer();
}

const Chemin& Remplacement::CheminProvisoire() const { return fichier_->Emplacement(); }

void CopierLignes(const Chemin& source, Ecrivain& copie) {
  LecteurLignes lecteur(source);
  for (std::string_view ligne; lecteur.Lire(ligne);) copie.Ligne(ligne);
}

void CopierLignes(const Chemin& source, const Chemin& repertoire, std::string_view nomCible, Nature nature) {
  Remplacement copie(repertoire, nomCible, nature);
  CopierLignes(source, copie.Fichier());
  copie.Valider();
}

}  // namespace quelvar
