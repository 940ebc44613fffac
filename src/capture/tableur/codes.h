// Cells that hold a code: which ones do, and their digits.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quelvar::capture {

// Columns up to this width hold codes.
inline constexpr std::size_t kLargeurCodes = 3;

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
