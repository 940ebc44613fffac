#include "core/fichiers/systeme/appels.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "core/fichiers/systeme/echecs.h"

namespace quelvar::appels {

namespace {

// The one thing here that outlives a call; nothing but a test sets it.
Sonde sondePosee = nullptr;

bool Refuse(const char* appel) {
  if (sondePosee == nullptr) return false;
  const int code = sondePosee(appel);
  if (code != 0) errno = code;
  return code != 0;
}

bool SansCetAppel(int code) { return code == EINVAL || code == ENOSYS || code == ENOTSUP || code == EPERM; }

std::string CheminDEchange(const char* provisoire) { return std::string(provisoire) + "~"; }

int EchangerParEtapes(const char* cible, const char* provisoire) {
  const std::string tiers = CheminDEchange(provisoire);
  if (Lier(cible, tiers.c_str()) != 0 && (!SansCetAppel(errno) || Renommer(cible, tiers.c_str()) != 0)) return -1;
  if (Renommer(provisoire, cible) != 0) {
    const int code = errno;
    AcheverEchange(cible, provisoire);
    errno = code;
    return -1;
  }
  if (Renommer(tiers.c_str(), provisoire) == 0) return 0;
  const int code = errno;  // back to what was
  if (::rename(cible, provisoire) == 0) ::rename(tiers.c_str(), cible);
  errno = code;
  return -1;
}

}  // namespace

void PoserSonde(Sonde sonde) { sondePosee = sonde; }

int Creer(const char* chemin) {
  if (Refuse("creer")) return -1;
  return ::open(chemin, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
}

int OuvrirEnEcriture(const char* chemin, int drapeaux) {
  if (Refuse("ouvrir")) return -1;
  return ::open(chemin, drapeaux | O_CLOEXEC, 0666);
}

ssize_t Ecrire(int descripteur, const void* octets, std::size_t taille) {
  if (Refuse("ecrire")) return -1;
  return ::write(descripteur, octets, taille);
}

ssize_t EcrireA(int descripteur, const void* octets, std::size_t taille, std::uint64_t place) {
  if (Refuse("ecrire")) return -1;
  return ::pwrite(descripteur, octets, taille, static_cast<off_t>(place));
}

int Fermer(int descripteur) {
  if (!Refuse("fermer")) return ::close(descripteur);
  const int code = errno;
  ::close(descripteur);
  errno = code;
  return -1;
}

int Synchroniser(int descripteur) {
  if (Refuse("synchroniser")) return -1;
  return ::fsync(descripteur);
}

int Effacer(const char* chemin) {
  if (Refuse("effacer")) return -1;
  return ::unlink(chemin);
}

int Raccourcir(const char* chemin, std::uint64_t taille) {
  if (Refuse("raccourcir")) return -1;
  return ::truncate(chemin, static_cast<off_t>(taille));
}

int RaccourcirOuvert(int descripteur, std::uint64_t taille) {
  if (Refuse("raccourcir")) return -1;
  return ::ftruncate(descripteur, static_cast<off_t>(taille));
}

int Lier(const char* existant, const char* nouveau) {
  if (Refuse("lier")) return -1;
  return ::link(existant, nouveau);
}

int Renommer(const char* de, const char* vers) {
  if (Refuse("renommer")) return -1;
  return ::rename(de, vers);
}

int RenommerSansRemplacer(const char* de, const char* vers) {
  if (Refuse("renommer sans remplacer")) return -1;
  if (::renameat2(AT_FDCWD, de, AT_FDCWD, vers, RENAME_NOREPLACE) == 0) return 0;
  if (!SansCetAppel(errno)) return -1;
  if (Existe(vers)) {
    errno = EEXIST;
    return -1;
  }
  return Renommer(de, vers);
}

int Echanger(const char* cible, const char* provisoire) {
  if (Refuse("echanger")) {
    if (errno != ENOSYS) return -1;
  } else if (::renameat2(AT_FDCWD, cible, AT_FDCWD, provisoire, RENAME_EXCHANGE) == 0) {
    return 0;
  }
  return SansCetAppel(errno) ? EchangerParEtapes(cible, provisoire) : -1;
}

int AcheverEchange(const char* cible, const char* provisoire) {
  const std::string tiers = CheminDEchange(provisoire);
  if (!Existe(tiers.c_str())) return 0;
  if (!Existe(provisoire)) return Renommer(tiers.c_str(), provisoire);
  if (!Existe(cible)) return Renommer(tiers.c_str(), cible);
  return Effacer(tiers.c_str());
}

bool Existe(const char* chemin) { return ::faccessat(AT_FDCWD, chemin, F_OK, AT_SYMLINK_NOFOLLOW) == 0; }

std::int64_t InstantDEcriture(const struct stat& etat) {
  constexpr std::int64_t kNanosecondes = 1'000'000'000;  // of a second
  return etat.st_mtim.tv_sec * kNanosecondes + etat.st_mtim.tv_nsec;
}

void Exiger(int resultat, const Chemin& fichier) {
  if (resultat != 0) LeverErrno(fichier, errno);
}

}  // namespace quelvar::appels
