#include "capture/octets.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace quelvar::capture {

namespace {

constexpr std::uint64_t kBitsHauts = 0x8080808080808080ULL;

}  // namespace

bool EstAscii(std::string_view octets) {
  std::uint64_t hauts = 0;
  std::size_t i = 0;
  for (; i + 8 <= octets.size(); i += 8) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, octets.data() + i, 8);
    hauts |= mot;
  }
  for (; i < octets.size(); ++i) hauts |= static_cast<unsigned char>(octets[i]);
  return (hauts & kBitsHauts) == 0;
}

bool SontChiffres(std::string_view texte) {
  return !texte.empty() && texte.find_first_not_of("0123456789") == std::string_view::npos;
}

std::size_t PremierHaut(std::string_view octets, std::size_t debut) {
  std::size_t i = debut;
  for (; i + 8 <= octets.size(); i += 8) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, octets.data() + i, 8);
    mot &= kBitsHauts;
    if (mot != 0) return i + static_cast<std::size_t>(std::countr_zero(mot)) / 8;
  }
  while (i < octets.size() && static_cast<unsigned char>(octets[i]) < 0x80) ++i;
  return i;
}

}  // namespace quelvar::capture
