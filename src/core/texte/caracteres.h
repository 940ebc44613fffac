// What every reader asks of characters: digits, blanks, bytes of ASCII.
#pragma once

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

inline std::string Blancs(std::size_t nombre) { return std::string(nombre, ' '); }

// Whether no byte is above 7F hex; eight bytes a step, since a file may be of hundreds of megabytes.
inline bool EstAscii(std::string_view octets) {
  constexpr std::uint64_t kBitsHauts = 0x8080808080808080;
  std::uint64_t reunis = 0;
  for (; octets.size() >= sizeof reunis; octets.remove_prefix(sizeof reunis)) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, octets.data(), sizeof mot);
    reunis |= mot;
  }
  for (const char c : octets) reunis |= static_cast<unsigned char>(c);
  return (reunis & kBitsHauts) == 0;
}

}  // namespace quelvar
