#include "factor/analyse/supplementaires.h"

#include <algorithm>
#include <utility>

namespace quelvar::factor {

namespace {

constexpr std::size_t kValeursParBloc = std::size_t{1} << 18;  // a mebibyte

}  // namespace

LignesSupplementaires::LignesSupplementaires(Chemin chemin, std::size_t colonnes)
    : fichier_(std::move(chemin)),
      colonnes_(colonnes),
      lignesParBloc_(std::max<std::size_t>(kValeursParBloc / std::max<std::size_t>(colonnes, 1), 1)) {
  bloc_.reserve(lignesParBloc_ * colonnes_);
}

void LignesSupplementaires::Ajouter(std::span<const float> ligne) {
  bloc_.insert(bloc_.end(), ligne.begin(), ligne.end());
  ++nombre_;
  if (nombre_ - nombreEcrites_ == lignesParBloc_) ViderAjouts();
}

void LignesSupplementaires::ViderAjouts() {
  fichier_.Ecrire(nombreEcrites_ * colonnes_ * sizeof(float), bloc_.data(), bloc_.size() * sizeof(float));
  bloc_.clear();
  nombreEcrites_ = nombre_;
}

void LignesSupplementaires::Modifier(const Traiter& traiter) { PourChaqueBloc(traiter, true); }

void LignesSupplementaires::Parcourir(const Examiner& examiner) {
  PourChaqueBloc([&](std::size_t rang, std::span<float> ligne) { examiner(rang, ligne); }, false);
}

void LignesSupplementaires::PourChaqueBloc(const Traiter& traiter, bool recopier) {
  ViderAjouts();
  for (std::size_t debut = 0; debut < nombre_; debut += lignesParBloc_) {
    const std::size_t lignes = std::min(lignesParBloc_, nombre_ - debut);
    const std::uint64_t place = debut * colonnes_ * sizeof(float);
    bloc_.resize(lignes * colonnes_);
    fichier_.Lire(place, bloc_.data(), bloc_.size() * sizeof(float));
    for (std::size_t i = 0; i < lignes; ++i) traiter(debut + i, std::span(bloc_).subspan(i * colonnes_, colonnes_));
    if (recopier) fichier_.Ecrire(place, bloc_.data(), bloc_.size() * sizeof(float));
  }
  bloc_.clear();
}

}  // namespace quelvar::factor
