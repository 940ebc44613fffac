// Cells of one digit, four at a time: their digits and separators are eight bytes, judged by one comparison.
#pragma once

#include <bit>
#include <cstdint>

#include "core/texte/caracteres.h"

namespace quelvar::capture::quatre {

static_assert(std::endian::native == std::endian::little, "the first cell is the lowest byte");

inline constexpr unsigned kCellules = 4;

// The bytes of four cells "0", each with that separator behind it.
constexpr std::uint64_t Modele(char separateur) {
  constexpr std::uint64_t kZeros = 0x0030003000300030ULL;
  constexpr std::uint64_t kPlacesImpaires = 0x0100010001000100ULL;
  return kZeros | static_cast<std::uint64_t>(static_cast<unsigned char>(separateur)) * kPlacesImpaires;
}

// The high bit of every byte that is neither a digit at an even place nor the separator at an odd one; 0 for four
// cells.
constexpr std::uint64_t Fautifs(std::uint64_t octets, std::uint64_t modele) {
  // Zero to nine at even bytes and 0 at odd ones, for digits and separators.
  constexpr std::uint64_t kPlacesPaires = 0x00FF00FF00FF00FFULL;
  constexpr std::uint64_t kSeuils = (HuitFois(SeuilDe(9)) & kPlacesPaires) | (HuitFois(SeuilDe(0)) & ~kPlacesPaires);
  return AuDela(octets ^ modele, kSeuils);
}

}  // namespace quelvar::capture::quatre
