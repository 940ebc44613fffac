// Cells of one digit, four at a time: their digits and separators are eight bytes, judged by one comparison.
#pragma once

#include <bit>
#include <cstdint>

namespace quelvar::capture::quatre {

static_assert(std::endian::native == std::endian::little, "the first cell is the lowest byte");

inline constexpr unsigned kCellules = 4;
inline constexpr std::uint64_t kSansBitHaut = 0x7F7F7F7F7F7F7F7FULL;

// The bytes of four cells "0", each with that separator behind it.
constexpr std::uint64_t Modele(char separateur) {
  constexpr std::uint64_t kZeros = 0x0030003000300030ULL;
  constexpr std::uint64_t kPlacesImpaires = 0x0100010001000100ULL;
  return kZeros | static_cast<std::uint64_t>(static_cast<unsigned char>(separateur)) * kPlacesImpaires;
}

// The high bit of every byte that is neither a digit at an even place nor the separator at an odd one; 0 for four
// cells.
constexpr std::uint64_t Fautifs(std::uint64_t octets, std::uint64_t modele) {
  // Zero to nine at even bytes and 0 at odd ones, for digits and separators; the sums then stay below 80 hex.
  constexpr std::uint64_t kSeuils = 0x7F767F767F767F76ULL;
  const std::uint64_t ecart = octets ^ modele;
  return (((ecart & kSansBitHaut) + kSeuils) | ecart) & ~kSansBitHaut;
}

}  // namespace quelvar::capture::quatre
