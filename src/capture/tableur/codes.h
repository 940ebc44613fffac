// Cells that hold a code: which ones do, and their digits.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/texte/caracteres.h"

namespace quelvar::capture {

// Columns up to this width hold codes.
inline constexpr std::size_t kLargeurCodes = 3;

// Value of at most kLargeurCodes digits, what most cells are; -1 for any other text.
constexpr int ValeurDesChiffres(std::string_view cellule) {
  if (cellule.size() > kLargeurCodes) return -1;
  int valeur = 0;
  for (const char c : cellule) {
    if (!EstChiffre(c)) return -1;
    valeur = valeur * 10 + (c - '0');
  }
  return valeur;
}

// The digits of a number without decimals, as .DAT holds them: no sign, no leading zero, "0" for a negative one.
// Nothing for a text or a number with decimals.
std::optional<std::string> ChiffresDuCode(std::string_view cellule);

// A cell with a decimal sign in a column of codes counts as "0".
inline bool EstDecimale(std::string_view cellule) {
  for (const char c : cellule)
    if (c == '.' || c == ',') return true;
  return false;
}

}  // namespace quelvar::capture
