// Sort of texts by a key of twenty columns: the heap sort of every program that orders lines, and the order in which
// it leaves equal keys.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace quelvar::utilities {

enum class SensDeTri { Croissant, Decroissant };

// Columns of a key: longer ones are cut, shorter ones padded with blanks.
inline constexpr std::size_t kLargeurCle = 20;

// A key as three numbers whose order is that of its bytes.
struct CleDeTri {
  std::uint64_t debut = 0;   // columns 1-8
  std::uint64_t milieu = 0;  // columns 9-16
  std::uint32_t fin = 0;     // columns 17-20

  auto operator<=>(const CleDeTri&) const = default;
};

CleDeTri CleDe(std::string_view texte);

// Told every thousand steps how many elements are still to be placed.
using SuiviDeTri = std::function<void(std::int64_t reste)>;

// Ranks (from 0) of the keys in their sorted order. Not stable: equal keys stand as the heap sort of (key, rank)
// records leaves them. Raises kMemoireInsuffisante for more than 2^32 keys.
std::vector<std::uint32_t> TriChaines(const std::vector<CleDeTri>& cles, SensDeTri sens, const SuiviDeTri& suivre);

}  // namespace quelvar::utilities
