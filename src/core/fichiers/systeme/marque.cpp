#include "core/fichiers/systeme/marque.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <vector>

#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/condense.h"
#include "core/fichiers/systeme/morceaux.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

constexpr const char* kAttribut = "user.quelvar.resultat";
constexpr std::size_t kMarqueAuPlus = 256;    // bytes: the start of the machine and three numbers
constexpr std::size_t kLongueurDAmorce = 36;  // of a UUID as a text

struct Marque {
  std::string amorce;
  unsigned long long taille = 0;
  unsigned long long empreinte = 0;
  long long instant = 0;  // of the last write, in nanoseconds
};

bool LireMarque(int descripteur, Marque& marque) {
  std::array<char, kMarqueAuPlus> octets{};
  if (::fgetxattr(descripteur, kAttribut, octets.data(), octets.size() - 1) <= 0) return false;
  std::array<char, 64> amorce{};  // as many as sscanf is told
  if (std::sscanf(octets.data(), "%63s %llu %llu %lld", amorce.data(), &marque.taille, &marque.empreinte,
                  &marque.instant) != 4)
    return false;
  marque.amorce = amorce.data();
  return true;
}

CondenseDOctets MesurerOuvert(int descripteur) {
  CondenseDOctets condense;
  std::vector<char> octets(kMorceau);
  for (;;) {
    const ssize_t lus = ::pread(descripteur, octets.data(), octets.size(), static_cast<off_t>(condense.Taille()));
    if (lus <= 0) return condense;
    condense.Ajouter({octets.data(), static_cast<std::size_t>(lus)});
  }
}

}  // namespace

std::string AmorceDuSysteme() {
  const int descripteur = ::open("/proc/sys/kernel/random/boot_id", O_RDONLY | O_CLOEXEC);
  if (descripteur < 0) return {};
  std::array<char, kLongueurDAmorce> octets{};
  const ssize_t lus = ::read(descripteur, octets.data(), octets.size());
  ::close(descripteur);
  return {octets.data(), lus > 0 ? static_cast<std::size_t>(lus) : 0};
}

void MarquerNonAttendu(int descripteur, std::uint64_t taille, std::uint64_t empreinte) {
  struct stat etat {};
  const std::string amorce = AmorceDuSysteme();
  if (amorce.empty() || ::fstat(descripteur, &etat) != 0) return;
  const std::string texte = Joindre({amorce, " ", std::to_string(taille), " ", std::to_string(empreinte), " ",
                                     std::to_string(appels::InstantDEcriture(etat))});
  ::fsetxattr(descripteur, kAttribut, texte.data(), texte.size(), 0);
}

void VerifierMarque(int descripteur, const Chemin& chemin) {
  Marque marque;
  if (!LireMarque(descripteur, marque) || marque.amorce == AmorceDuSysteme()) return;
  struct stat etat {};
  if (::fstat(descripteur, &etat) != 0) return;
  if (appels::InstantDEcriture(etat) <= marque.instant) {
    const CondenseDOctets condense = MesurerOuvert(descripteur);
    if (condense.Taille() != marque.taille || condense.Valeur() != marque.empreinte)
      throw Erreur(kErreurPeripherique,
                   Joindre({kArretDuProgrammeSansAccents, TexteDe(chemin.filename()),
                            " n'est pas entier, l'arrêt de la machine a coupé son écriture ("_w,
                            std::to_string(condense.Taille()), " octets, il devait en avoir ",
                            std::to_string(marque.taille), ") : relancez le programme qui l'écrit"_w}));
  }
  ::fremovexattr(descripteur, kAttribut);
}

}  // namespace quelvar
