// The Burt table of a survey: how many individuals have both modalities of each pair.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quelvar {

// A symmetric table of counts, of which only the cells on and above the diagonal are kept.
class TableBurt {
 public:
  explicit TableBurt(std::size_t modalites);

  std::size_t Modalites() const { return departs_.size(); }

  // Adds 1 to the cell of each pair of an individual's modalities, given by their indices, from 0, in ascending order.
  void Compter(std::span<const std::uint32_t> presentes) {
    for (std::size_t a = 0; a < presentes.size(); ++a) {
      std::uint16_t* ligne = recents_.data() + departs_[presentes[a]];
      for (std::size_t b = a; b < presentes.size(); ++b) ++ligne[presentes[b]];
    }
    if (++nombreRecents_ == kRecentsAuPlus) Reporter();
  }

  // Count of a pair; the order of the two does not matter.
  std::int64_t Effectif(std::size_t i, std::size_t j) const;
  // The counts of a modality with each modality.
  void Ligne(std::size_t i, std::span<std::int64_t> effectifs) const;
  std::int64_t PlusGrandEffectif() const;

 private:
  void Reporter();

  // Individuals are counted on 16 bits, which keeps the cells close together, and carried over before one can overflow.
  static constexpr std::uint16_t kRecentsAuPlus = 65535;

  std::vector<std::size_t> departs_;  // cell (i, j), j >= i, stands at departs_[i] + j
  std::vector<std::uint16_t> recents_;
  std::uint16_t nombreRecents_ = 0;
  std::vector<std::int64_t> reportes_;  // empty until the first carry
};

}  // namespace quelvar
