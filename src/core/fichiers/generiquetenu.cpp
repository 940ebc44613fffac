#include "core/fichiers/generiquetenu.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <thread>
#include <tuple>
#include <utility>

#include "core/chiffres/dateheure.h"
#include "core/fichiers/provisoire.h"
#include "core/fichiers/reprise.h"
#include "core/fichiers/signaux.h"
#include "core/fichiers/systeme/appels.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

namespace fs = std::filesystem;

// What stands in the lock: process, user, what it writes, since when; a line for each.
using Detenteur = std::array<std::string, 4>;

std::string Utilisateur() {
  std::array<char, 4096> place{};  // for the texts of the entry: far more than it has
  passwd fiche{};
  passwd* trouvee = nullptr;
  if (::getpwuid_r(::getuid(), &fiche, place.data(), place.size(), &trouvee) == 0 && trouvee != nullptr)
    return fiche.pw_name;
  return std::to_string(::getuid());
}

std::string Instant() {
  const DateHeure maintenant = HeureLocale();
  return Joindre({TexteDate(maintenant), " à "_w, TexteHeure(maintenant)});
}

Detenteur LireDetenteur(int descripteur) {
  std::array<char, 1024> octets{};  // the four lines of a lock are shorter
  const ssize_t lus = ::pread(descripteur, octets.data(), octets.size(), 0);
  std::string_view texte(octets.data(), lus > 0 ? static_cast<std::size_t>(lus) : 0);
  Detenteur detenteur;
  for (std::string& ligne : detenteur) {
    const std::size_t fin = texte.find("\r\n");
    ligne = texte.substr(0, fin);
    texte.remove_prefix(fin == std::string_view::npos ? texte.size() : fin + 2);
  }
  return detenteur;
}

// Behind the holder stand the lines on a repair that its first run is to tell.
void EcrireDetenteur(int descripteur, std::string_view ouvrage, const std::vector<std::string>& recit) {
  std::string texte = Joindre(
      {std::to_string(::getpid()), "\r\n", DepuisUtf8(Utilisateur()), "\r\n", ouvrage, "\r\n", Instant(), "\r\n"});
  for (const std::string& ligne : recit) texte += ligne + "\r\n";
  // Without these lines the lock holds all the same.
  if (appels::RaccourcirOuvert(descripteur, 0) != 0 || appels::EcrireA(descripteur, texte.data(), texte.size(), 0) < 0)
    return;
}

std::string PhraseOccupe(std::string_view generique, const Detenteur& detenteur) {
  if (detenteur[0].empty())
    return Joindre({"Le générique "_w, generique,
                    " est en cours d'écriture par un autre programme : relancez quand il aura fini"_w});
  return Joindre({"Le générique "_w, generique, " est en cours d'écriture par un autre programme ("_w, detenteur[2],
                  ", processus ", detenteur[0], " de ", detenteur[1], ", depuis le ", detenteur[3],
                  ") : relancez quand il aura fini"_w});
}

int Ouvrir(const Chemin& chemin) {
  constexpr int kToujours = O_NOFOLLOW | O_NONBLOCK;
  const int descripteur = appels::OuvrirEnEcriture(chemin.c_str(), O_RDWR | O_CREAT | kToujours);
  return descripteur >= 0 ? descripteur : ::open(chemin.c_str(), O_RDONLY | O_CLOEXEC | kToujours);
}

bool EstEncoreA(int descripteur, const Chemin& chemin) {
  struct stat ouvert {};
  struct stat present {};
  return ::fstat(descripteur, &ouvert) == 0 && ::lstat(chemin.c_str(), &present) == 0 &&
         ouvert.st_ino == present.st_ino && ouvert.st_dev == present.st_dev;
}

// The lines on a repair that the holder of this process has left in its lock, which has them no longer then.
std::vector<std::string> PrendreLeRecit(const Chemin& verrou) {
  constexpr std::size_t kLignesDuDetenteur = std::tuple_size_v<Detenteur>;
  std::vector<std::string> lignes;
  std::uintmax_t tete = 0;
  LecteurLignes lecteur(verrou);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (lignes.size() < kLignesDuDetenteur) tete += ligne.size() + 2;
    lignes.emplace_back(ligne);
  }
  if (lignes.size() <= kLignesDuDetenteur || appels::Raccourcir(verrou.c_str(), tete) != 0) return {};
  lignes.erase(lignes.begin(), lignes.begin() + kLignesDuDetenteur);
  return lignes;
}

struct Prise {
  int descripteur = -1;
  std::string disparu;  // the process that made the lock and is gone; empty without one
  std::vector<std::string> recit = {};
};

// Who holds a lock that was made a moment ago is written in it within another one.
Detenteur AttendreDetenteur(int descripteur) {
  constexpr int kEssais = 50;
  constexpr std::chrono::milliseconds kInstant{2};
  Detenteur detenteur = LireDetenteur(descripteur);
  for (int essai = 0; essai < kEssais && detenteur[0].empty(); ++essai) {
    std::this_thread::sleep_for(kInstant);
    detenteur = LireDetenteur(descripteur);
  }
  return detenteur;
}

// A link in place of the lock would hold a file elsewhere, or nothing.
std::string PhraseDuLien(const Chemin& verrou) {
  return Joindre({kArretDuProgrammeSansAccents, TexteDe(verrou.filename()),
                  " est un lien et non un verrou : effacez-le et relancez"_w});
}

// Whether it is held cannot be seen: going on would be writing at the same time as its user.
std::string PhraseFerme(const Chemin& verrou) {
  return Joindre({kArretDuProgrammeSansAccents, "le verrou ", TexteDe(verrou.filename()),
                  " est d'un autre utilisateur, qui écrit peut-être en ce moment : relancez quand il aura fini"_w});
}

Prise Prendre(const Chemin& chemin, std::string_view generique) {
  for (;;) {
    const int descripteur = Ouvrir(chemin);
    if (descripteur < 0 && errno == ELOOP) throw Erreur(kAccesFichier, PhraseDuLien(chemin));
    if (descripteur < 0 && errno == EACCES && appels::Existe(chemin.c_str()))
      throw Erreur(kPermissionRefusee, PhraseFerme(chemin));
    if (descripteur < 0) return {};
    if (::flock(descripteur, LOCK_EX | LOCK_NB) != 0) {
      const bool occupe = errno == EWOULDBLOCK;
      const Detenteur detenteur = occupe ? AttendreDetenteur(descripteur) : Detenteur();
      ::close(descripteur);
      if (!occupe) return {};
      if (EstInscrit(chemin)) return {-1, {}, PrendreLeRecit(chemin)};
      throw Erreur(kPermissionRefusee, PhraseOccupe(generique, detenteur));
    }
    // The former holder removes its file when it has done: one that is gone holds nothing.
    if (EstEncoreA(descripteur, chemin)) return {descripteur, LireDetenteur(descripteur)[0]};
    ::close(descripteur);
  }
}

constexpr std::string_view kDeLaSession = "QVR2.IN";  // how the names of its files begin, in upper case

// Scratch files of the generic which nobody holds; those of the initialisation file, that its programs write too, and
// those that the process made under other names (pictures, sorted and merged files, the report without a name), unless
// the record of a cut commit may name them.
void Balayer(const Chemin& repertoire, std::string_view generique, std::string_view disparu) {
  std::error_code code;
  const std::string debut = Joindre({Majuscules(generique), "."});
  std::vector<Chemin> duGenerique, autres;
  bool releve = false;
  for (fs::directory_iterator i(repertoire.empty() ? Chemin(".") : repertoire, code), fin; !code && i != fin;
       i.increment(code)) {
    const std::string nom = i->path().filename().native();
    releve = releve || nom.ends_with(".jeu");
    if (!EstNomProvisoire(nom)) continue;
    const std::string majuscules = Majuscules(NomDepuisUtf8(nom));
    if (majuscules.starts_with(debut) || majuscules.starts_with("." + debut)) duGenerique.push_back(i->path());
    else if (ProcessusDuProvisoire(nom) == disparu || majuscules.starts_with(kDeLaSession)) autres.push_back(i->path());
  }
  for (const Chemin& chemin : duGenerique) EffacerSiAbandonne(chemin);
  if (releve) return;
  for (const Chemin& chemin : autres) EffacerSiAbandonne(chemin);
}

}  // namespace

GeneriqueTenu::GeneriqueTenu(const Chemin& repertoire, std::string_view generique, std::string_view ouvrage,
                             Duree duree) {
  if (Rogner(generique).empty()) return;
  const Chemin verrou = repertoire / CheminDe(Joindre({".", Majuscules(generique), ".verrou"}));
  Prise prise = Prendre(verrou, generique);
  recit_ = std::move(prise.recit);
  if (prise.descripteur < 0) return;
  verrou_ = verrou;
  descripteur_ = prise.descripteur;
  inscription_ = InscrireProvisoire(verrou_);
  EcrireDetenteur(descripteur_, ouvrage, {});
  try {
    recit_ = ReprendreGenerique(repertoire, generique);
    if (!prise.disparu.empty()) Balayer(repertoire, generique, prise.disparu);
    if (duree == Duree::PlusieursRuns) EcrireDetenteur(descripteur_, ouvrage, std::exchange(recit_, {}));
  } catch (...) {
    *this = GeneriqueTenu();
    throw;
  }
}

GeneriqueTenu::~GeneriqueTenu() {
  if (descripteur_ < 0) return;
  appels::Effacer(verrou_.c_str());
  RayerProvisoire(inscription_);
  ::close(descripteur_);
}

GeneriqueTenu::GeneriqueTenu(GeneriqueTenu&& autre) noexcept { *this = std::move(autre); }

GeneriqueTenu& GeneriqueTenu::operator=(GeneriqueTenu&& autre) noexcept {
  std::swap(verrou_, autre.verrou_);
  std::swap(descripteur_, autre.descripteur_);
  std::swap(inscription_, autre.inscription_);
  std::swap(recit_, autre.recit_);
  return *this;
}

}  // namespace quelvar
