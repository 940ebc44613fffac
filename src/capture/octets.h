// What the bytes of a text are, looked at eight at a time where texts are long.
#pragma once

#include <cstddef>
#include <string_view>

namespace quelvar::capture {

// True when no byte is above 127.
bool EstAscii(std::string_view octets);
// Digits and nothing else, one at least.
bool SontChiffres(std::string_view texte);
// Place of the first byte above 127 from there on; the size of the text without any.
std::size_t PremierHaut(std::string_view octets, std::size_t debut);

}  // namespace quelvar::capture
