#include "factor/burt.h"

#include <algorithm>

namespace quelvar {

TableBurt::TableBurt(std::size_t modalites) : recents_(modalites * (modalites + 1) / 2) {
  departs_.reserve(modalites);
  for (std::size_t i = 0; i < modalites; ++i) departs_.push_back(i * modalites - i * (i + 1) / 2);
}

void TableBurt::Reporter() {
  reportes_.resize(recents_.size());
  for (std::size_t c = 0; c < recents_.size(); ++c) reportes_[c] += recents_[c];
  std::fill(recents_.begin(), recents_.end(), std::uint16_t{0});
  nombreRecents_ = 0;
}

std::int64_t TableBurt::Effectif(std::size_t i, std::size_t j) const {
  const std::size_t cellule = departs_[std::min(i, j)] + std::max(i, j);
  return recents_[cellule] + (reportes_.empty() ? 0 : reportes_[cellule]);
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

}  // namespace quelvar
