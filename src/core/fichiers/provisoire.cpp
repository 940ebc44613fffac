#include "core/fichiers/provisoire.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <utility>

#include "core/fichiers/signaux.h"
#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/echecs.h"
#include "core/fichiers/systeme/marque.h"
#include "core/fichiers/systeme/morceaux.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMarque = ".~";
constexpr std::size_t kNomAuPlus = 200;  // bytes of the target's name that the scratch name keeps
constexpr int kEssais = 1000;

// The file behind a link; a name that nothing bears yet stays as it is.
Chemin CibleDuLien(const Chemin& cible) {
  std::error_code code;
  Chemin suivie = fs::canonical(cible, code);
  return code ? cible : suivie;
}

int CreerA(Chemin& chemin, const Chemin& cible) {
  for (int essai = 0; essai < kEssais; ++essai) {
    chemin = NomProvisoire(cible);
    const int descripteur = appels::Creer(chemin.c_str());
    if (descripteur >= 0) return descripteur;
    if (errno != EEXIST) break;
  }
  LeverErrnoDeCreation(cible, errno);
}

}  // namespace

Chemin NomProvisoire(const Chemin& cible) {
  static std::atomic<unsigned> numero{0};
  std::string nom = cible.filename().native().substr(0, kNomAuPlus);
  nom += kMarque;
  nom += std::to_string(::getpid()) + '-' + std::to_string(++numero);
  return cible.parent_path() / nom;
}

bool EstNomProvisoire(std::string_view nom) { return !ProcessusDuProvisoire(nom).empty(); }

std::string_view ProcessusDuProvisoire(std::string_view nom) {
  const std::size_t marque = nom.rfind(kMarque);
  if (marque == std::string_view::npos) return {};
  std::string_view suite = nom.substr(marque + kMarque.size());
  if (!suite.empty() && suite.back() == '~') suite.remove_suffix(1);  // the third name of an exchange
  const std::size_t tiret = suite.find('-');
  const bool nomProvisoire = tiret != std::string_view::npos && tiret > 0 && tiret + 1 < suite.size() &&
                             suite.find_first_not_of("0123456789-") == std::string_view::npos;
  return nomProvisoire ? suite.substr(0, tiret) : std::string_view();
}

void EffacerSiAbandonne(const Chemin& chemin) {
  const int descripteur = ::open(chemin.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descripteur < 0) return;
  if (::flock(descripteur, LOCK_EX | LOCK_NB) == 0) appels::Effacer(chemin.c_str());
  ::close(descripteur);
}

std::optional<MesureDeFichier> MesurerFichier(const Chemin& chemin) {
  try {
    CondenseDOctets condense;
    ParMorceaux(chemin, [&](std::string_view octets) { condense.Ajouter(octets); });
    return MesureDeFichier{condense.Taille(), condense.Valeur()};
  } catch (const Erreur&) {
    return std::nullopt;
  }
}

bool VerifierCible(const Chemin& cible) {
  struct stat etat {};
  if (::stat(cible.c_str(), &etat) != 0) return false;
  if (!S_ISREG(etat.st_mode)) throw PasUnFichier(cible);
  if (::access(cible.c_str(), W_OK) != 0) LeverErrno(cible, errno);
  struct stat dossier {};
  const Chemin parent = cible.parent_path().empty() ? Chemin(".") : cible.parent_path();
  if (::stat(parent.c_str(), &dossier) != 0) LeverErrno(cible, errno);
  const uid_t moi = ::geteuid();
  // In a sticky directory a file is replaced by its owner only.
  if ((dossier.st_mode & S_ISVTX) != 0 && moi != 0 && etat.st_uid != moi && dossier.st_uid != moi)
    throw EchecDuFichier(cible, kPermissionRefusee);
  return true;
}

Provisoire::Provisoire(const Chemin& cible, Nature nature)
    : cible_(CibleDuLien(cible)),
      nature_(nature),
      existe_(VerifierCible(cible_)),
      descripteur_(CreerA(chemin_, cible_)),
      ecrivain_(cible_, ::fcntl(descripteur_, F_DUPFD_CLOEXEC, 0), &condense_),
      inscription_(InscrireProvisoire(chemin_)) {
  ::flock(descripteur_, LOCK_EX | LOCK_NB);
}

Provisoire::~Provisoire() {
  if (!chemin_.empty()) appels::Effacer(chemin_.c_str());
  RayerProvisoire(inscription_);
  ::close(descripteur_);
}

void Provisoire::Synchroniser() const {
  if (appels::Synchroniser(descripteur_) != 0) LeverErrno(cible_, errno);
}

void Provisoire::Marquer() const { MarquerNonAttendu(descripteur_, Taille(), Empreinte()); }

void Provisoire::Tenir() {
  existe_ = VerifierCible(cible_);
  struct stat etat {};
  if (!existe_ || ::stat(cible_.c_str(), &etat) != 0) return;
  // Only the owner and root may give a file away; what is left is a file of the user with the same rights.
  if (::fchown(descripteur_, etat.st_uid, etat.st_gid) != 0) etat.st_mode &= 0777U;
  ::fchmod(descripteur_, etat.st_mode & 07777U);
}

void Provisoire::Placer() {
  if (appels::Renommer(chemin_.c_str(), cible_.c_str()) != 0) LeverErrno(cible_, errno);
  Lacher();
}

void Provisoire::Lacher() {
  RayerProvisoire(std::exchange(inscription_, -1));
  chemin_.clear();
}

bool Provisoire::MemesOctets() const {
  std::error_code code;
  if (!existe_ || fs::file_size(cible_, code) != Taille() || code) return false;
  return MesurerFichier(cible_) == MesureDeFichier{Taille(), Empreinte()};
}

}  // namespace quelvar
