#include "core/fichiers/systeme/ecriture.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/condense.h"
#include "core/fichiers/systeme/echecs.h"
#include "core/panne/erreur.h"

namespace quelvar {

namespace {

int OuvrirEnEcriture(const Chemin& chemin, ModeEcriture mode) {
  const int place = mode == ModeEcriture::Neuf ? O_TRUNC : O_APPEND;
  const int descripteur = appels::OuvrirEnEcriture(chemin.c_str(), O_WRONLY | O_CREAT | place);
  if (descripteur < 0) LeverErrnoDeCreation(chemin, errno);
  return descripteur;
}

}  // namespace

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

}  // namespace quelvar
