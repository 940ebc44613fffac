#include "core/fichiers/travail.h"

#include <unistd.h>

#include <cerrno>

#include "core/fichiers/provisoire.h"
#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/echecs.h"

namespace quelvar {

FichierDeTravail::FichierDeTravail(const Chemin& chemin) : voisin_(chemin) {
  const Chemin nom = NomProvisoire(chemin);
  descripteur_ = appels::Creer(nom.c_str());
  if (descripteur_ < 0) LeverErrnoDeCreation(chemin, errno);
  appels::Effacer(nom.c_str());
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
    const ssize_t ecrits = appels::EcrireA(descripteur_, suite, taille, place);
    if (ecrits < 0 && errno == EINTR) continue;
    if (ecrits < 0) LeverErrno(voisin_, errno);
    suite += ecrits;
    place += static_cast<std::uint64_t>(ecrits);
    taille -= static_cast<std::size_t>(ecrits);
  }
}

}  // namespace quelvar
