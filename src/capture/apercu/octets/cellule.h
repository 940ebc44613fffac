// What one cell of a table is: a number and in which writing, a date, a text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelvar::capture {

// A number as it stands in a cell: digits, perhaps in groups of three, one decimal sign, an exponent as spreadsheets
// write it.
struct NombreLu {
  bool negatif = false;
  std::string_view entiers;    // with the signs between the groups
  std::string_view decimales;  // behind the sign
  std::string_view exposant;   // "E+05"; empty without
  char signe = '\0';           // decimal sign: ',' '.' or 0
  char groupes = '\0';         // sign between the groups: ' ' ',' '.' or 0
  bool zeroDevant = false;     // "007": more than one digit, the first a zero

  bool EstEntier() const { return signe == '\0' && exposant.empty(); }
  // "1,234": three digits behind the only sign, no zero alone before it; may be one thousand two hundred thirty-four.
  bool EstAmbigu() const;
  // The digits that say the same with a decimal point, nothing rounded: "-1234.50".
  std::string Normalise() const;
};

// The cell without the blanks, tabs and no-break spaces around it.
std::string_view RognerCellule(std::string_view cellule);

// Reads a trimmed cell; nothing when it is anything but one number ("5 %", "1E2", "1 2", "12 ans").
std::optional<NombreLu> LireNombre(std::string_view cellule);

// True for a day, an hour or both in the writings of spreadsheets and surveys: 01/03/2024, 2024-03-01 10:22:33...
bool EstDate(std::string_view cellule);

// The title of a column without tags, entities, line ends and outer blanks.
std::string NettoyerIntitule(std::string_view intitule);

}  // namespace quelvar::capture
