// The multiplicative hash of words, by which tables held in memory find their places; no result hangs on it.
#pragma once

#include <cstdint>

namespace quelvar {

// 2^64 over the golden ratio, made odd: its multiples lie spread over the words of 64 bits.
inline constexpr std::uint64_t kNombreDOr = 0x9E3779B97F4A7C15;

// The hash with one word more. The shift brings the high bits, which a product mixes best, down to those that choose a
// place. Source: D. E. Knuth, "The Art of Computer Programming", volume 3 (1998), 6.4.
constexpr std::uint64_t Meler(std::uint64_t hachage, std::uint64_t mot) {
  const std::uint64_t produit = (hachage ^ mot) * kNombreDOr;
  return produit ^ produit >> 32;
}

}  // namespace quelvar
