// What every reader asks of characters: digits, blanks, bytes of ASCII.
#pragma once

#include <bit>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace quelvar {

constexpr bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

// A text of digits and nothing else; an empty one is none.
inline bool SontChiffres(std::string_view texte) {
  return !texte.empty() && texte.find_first_not_of("0123456789") == std::string_view::npos;
}

// Nothing but digits and blanks, as cells of whole numbers are.
inline bool SontChiffresOuBlancs(std::string_view texte) {
  return texte.find_first_not_of(" 0123456789") == std::string_view::npos;
}

inline std::string Blancs(std::size_t nombre) { return std::string(nombre, ' '); }

// The bit of each of eight bytes that no byte of ASCII has: what looks for it takes eight bytes a step, since a file
// may be of hundreds of megabytes.
inline constexpr std::uint64_t kBitsHauts = 0x8080808080808080;

// One byte eight times.
constexpr std::uint64_t HuitFois(unsigned char octet) { return octet * (~std::uint64_t{0} / 0xFF); }

// The high bit of each of eight bytes that is above its limit, which `seuils` tells as 7F hex less the limit; the sums
// stay within their bytes.
constexpr std::uint64_t AuDela(std::uint64_t octets, std::uint64_t seuils) {
  return (((octets & ~kBitsHauts) + seuils) | octets) & kBitsHauts;
}
constexpr unsigned char SeuilDe(unsigned char limite) { return static_cast<unsigned char>(0x7F - limite); }

// Whether no byte is above 7F hex.
inline bool EstAscii(std::string_view octets) {
  std::uint64_t reunis = 0;
  for (; octets.size() >= sizeof reunis; octets.remove_prefix(sizeof reunis)) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, octets.data(), sizeof mot);
    reunis |= mot;
  }
  for (const char c : octets) reunis |= static_cast<unsigned char>(c);
  return (reunis & kBitsHauts) == 0;
}

// Place of the first byte above 7F hex, from that one on; the size without one.
inline std::size_t PremierHaut(std::string_view octets, std::size_t debut = 0) {
  std::size_t place = debut;
  for (std::uint64_t mot = 0; place + sizeof mot <= octets.size(); place += sizeof mot) {
    std::memcpy(&mot, octets.data() + place, sizeof mot);
    mot &= kBitsHauts;
    const int avant = std::endian::native == std::endian::little ? std::countr_zero(mot) : std::countl_zero(mot);
    if (mot != 0) return place + static_cast<std::size_t>(avant) / CHAR_BIT;
  }
  while (place < octets.size() && static_cast<unsigned char>(octets[place]) < 0x80) ++place;
  return place;
}

}  // namespace quelvar
