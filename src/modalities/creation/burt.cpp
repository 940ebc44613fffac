#include "modalities/creation/burt.h"

#include <algorithm>
#include <array>
#include <limits>

namespace quelvar::modalities {

namespace {

constexpr std::size_t kOctetsParBloc = 512 * 1024;  // presence vectors that stay near the processor
constexpr std::size_t kParGroupe = 4;               // presence vectors added in one go
constexpr std::size_t kPorteursAuPlus = std::numeric_limits<std::uint8_t>::max();

// Shift of a byte in its word.
constexpr unsigned Decalage(std::size_t octet) { return static_cast<unsigned>(octet % 8 * 8); }

// Adds a group of vectors of words to another. The inner length is fixed, so that the compiler vectorises it whole.
template <std::size_t T, typename Mot>
void AjouterGroupe(Mot* somme, const std::array<const Mot*, kParGroupe>& termes, std::size_t mots) {
  for (std::size_t debut = 0; debut < mots; debut += T)
    for (std::size_t k = debut; k < debut + T; ++k)
      somme[k] += (termes[0][k] + termes[1][k]) + (termes[2][k] + termes[3][k]);
}

}  // namespace

TableBurt::TableBurt(std::size_t modalites)
    : mots_((modalites + kParMot * kTroncon - 1) / (kParMot * kTroncon) * kTroncon),
      individusParBloc_(std::max<std::size_t>(kOctetsParBloc / (mots_ * kParMot + 1), kPorteursAuPlus)),
      presences_((individusParBloc_ + 1) * mots_),
      porteurs_(modalites) {
  departs_.reserve(modalites + 1);
  departs_.push_back(0);
  for (std::size_t i = 0; i < modalites; ++i) departs_.push_back(departs_[i] + mots_ - PremierMot(i));
  recents_.resize(departs_.back());
}

void TableBurt::Compter(std::span<const std::uint32_t> presentes) {
  Octets* const vecteur = presences_.data() + fins_.size() * mots_;
  for (const std::uint32_t modalite : presentes) vecteur[modalite / kParMot] += Octets{1} << Decalage(modalite);
  listes_.insert(listes_.end(), presentes.begin(), presentes.end());
  fins_.push_back(static_cast<std::uint32_t>(listes_.size()));
  if (fins_.size() == individusParBloc_) CompterLeBloc();
}

void TableBurt::CompterLeBloc() {
  // The individuals of the block by modality: a sort by counting.
  std::vector<std::uint32_t> places(Modalites() + 1);
  for (const std::uint32_t modalite : listes_) ++places[modalite + 1];
  for (std::size_t i = 0; i < Modalites(); ++i) places[i + 1] += places[i];
  std::vector<std::uint32_t> parModalite(listes_.size());
  std::vector<std::uint32_t> suivantes(places.begin(), places.end() - 1);
  for (std::uint32_t individu = 0, rang = 0; individu < fins_.size(); ++individu)
    for (; rang < fins_[individu]; ++rang) parModalite[suivantes[listes_[rang]]++] = individu;

  for (std::size_t i = 0; i < Modalites(); ++i)
    AjouterPorteurs(i, std::span(parModalite).subspan(places[i], places[i + 1] - places[i]));
  std::fill_n(presences_.begin(), fins_.size() * mots_, Octets{0});
  listes_.clear();
  fins_.clear();
}

void TableBurt::AjouterPorteurs(std::size_t i, std::span<const std::uint32_t> individus) {
  const std::size_t premier = PremierMot(i);
  for (std::size_t n = 0; n < individus.size(); n += kParGroupe) {
    const std::size_t groupe = std::min(kParGroupe, individus.size() - n);
    if (porteurs_[i] + groupe > kPorteursAuPlus) Reporter(i);
    porteurs_[i] = static_cast<std::uint8_t>(porteurs_[i] + groupe);
    std::array<const Octets*, kParGroupe> termes;
    for (std::size_t k = 0; k < kParGroupe; ++k)
      termes[k] = presences_.data() + (k < groupe ? individus[n + k] : individusParBloc_) * mots_ + premier;
    AjouterGroupe<kTroncon>(recents_.data() + departs_[i], termes, mots_ - premier);
  }
}

void TableBurt::Reporter(std::size_t i) {
  reportes_.resize(recents_.size() * kParMot);
  for (std::size_t m = departs_[i]; m < departs_[i + 1]; ++m) {
    for (std::size_t k = 0; k < kParMot; ++k)
      reportes_[m * kParMot + k] += static_cast<std::uint8_t>(recents_[m] >> Decalage(k));
    recents_[m] = 0;
  }
  porteurs_[i] = 0;
}

std::int64_t TableBurt::Effectif(std::size_t i, std::size_t j) const {
  const std::size_t colonne = std::max(i, j);
  const std::size_t mot = Mot(std::min(i, j), colonne);
  return static_cast<std::uint8_t>(recents_[mot] >> Decalage(colonne)) +
         (reportes_.empty() ? 0 : reportes_[mot * kParMot + colonne % kParMot]);
}

void TableBurt::Ligne(std::size_t i, std::span<std::int64_t> effectifs) const {
  for (std::size_t j = 0; j < effectifs.size(); ++j) effectifs[j] = Effectif(i, j);
}

std::int64_t TableBurt::PlusGrandEffectif() const {
  // No pair is met more often than either of its modalities: the diagonal holds the largest count.
  std::int64_t plusGrand = 0;
  for (std::size_t i = 0; i < Modalites(); ++i) plusGrand = std::max(plusGrand, Effectif(i, i));
  return plusGrand;
}

}  // namespace quelvar::modalities
