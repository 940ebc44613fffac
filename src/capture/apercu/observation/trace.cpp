#include "capture/apercu/observation/trace.h"

#include <algorithm>
#include <array>

#include "capture/apercu/observation/faits.h"
#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

namespace {

using namespace cellule_tracee;

constexpr std::size_t kPetits = kPremierTexte - kPremierPetit;

const std::array<std::string, kPetits>& Petits() {
  static const std::array<std::string, kPetits> petits = [] {
    std::array<std::string, kPetits> textes;
    for (std::size_t i = 0; i < kPetits; ++i) textes[i] = Nombre(i);
    return textes;
  }();
  return petits;
}

}  // namespace

void TraceDeCellules::Ajouter(std::span<const std::uint16_t> rangee) {
  if (rangees_ == 0) {
    colonnes_ = rangee.size();
    tampon_.reserve(kCellulesDeMorceau + colonnes_);
    textes_.resize(colonnes_);
  }
  if (rangee.size() != colonnes_ || colonnes_ == 0) return Abandonner();
  tampon_.insert(tampon_.end(), rangee.begin(), rangee.end());
  ++rangees_;
  if (tampon_.size() >= kCellulesDeMorceau) Vider();
}

void TraceDeCellules::Vider() {
  if (!abandonnee_) {
    try {
      if (!fichier_) fichier_ = std::make_unique<FichierDeTravail>(chemin_);
      fichier_->Ecrire(ecrits_, tampon_.data(), tampon_.size() * kOctets);
    } catch (const Erreur&) {  // the source is read a second time instead
      Abandonner();
    }
    ecrits_ += tampon_.size() * kOctets;
  }
  tampon_.clear();
}

void TraceDeCellules::Nommer(std::size_t colonne, std::vector<std::string> textes) {
  if (colonne < colonnes_) textes_[colonne] = std::move(textes);
}

void TraceDeCellules::Achever() { Vider(); }

std::string_view TraceDeCellules::Texte(std::size_t colonne, std::uint16_t cellule) const {
  if (cellule == kVide) return {};
  if (cellule == kNonDit) return kNonReponse;
  if (cellule < kPremierTexte) return Petits()[cellule - std::size_t{kPremierPetit}];
  return textes_[colonne].at(cellule - std::size_t{kPremierTexte});
}

}  // namespace quelvar::capture
