// What one cell of a table is: a number and in which writing, a date, a text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelvar::capture {

// What an export writes for the code 0, a non-response, and an import reads as it.
inline constexpr std::string_view kNonReponse = "nr";

// A number as it stands in a cell: digits, perhaps in groups of three, one decimal sign, an exponent as spreadsheets
// write it.
struct NombreDeCellule {
  bool negatif = false;
  std::string_view entiers;    // with the signs between the groups
  std::string_view decimales;  // behind the sign
  std::string_view exposant;   // "E+05"; empty without
  char signe = '\0';           // decimal sign: ',' '.' or 0
  char groupes = '\0';         // sign between the groups: ' ' ',' '.' or 0
  bool zeroDevant = false;     // "007": more than one digit, the first a zero

  bool EstEntier() const { return signe == '\0' && exposant.empty(); }
  // "2.0" as well.
  bool ValeurEntiere() const { return exposant.empty() && decimales.find_first_not_of('0') == std::string_view::npos; }
  // Without decimals that say nothing.
  NombreDeCellule SansDecimales() const;
  // "1,234": three digits behind the only sign, no zero alone before it; may be one thousand two hundred thirty-four.
  bool EstAmbigu() const;
  // Makes such a number that one thousand: its sign stands between groups.
  void LireEnMilliers();
  // The digits that say the same with a decimal point, nothing rounded: "-1234.50".
  std::string Normalise() const;
};

// What the signs in the numbers of a column say.
struct SignesDeNombres {
  char decimale = ',';
  char milliers = '\0';      // sign that groups thousands: "3,400" is three thousand four hundred; 0: unknown
  bool douteRefuse = false;  // a number like "3,400" may be either, and nothing tells which

  bool operator==(const SignesDeNombres&) const = default;
};

// What spreadsheets write around a number that is to stay a text: ="01" gives 01, and so do '01 and '01'.
std::string_view SansHabit(std::string_view cellule);

// The no-break space of the code page, and what counts as a blank in a cell.
inline constexpr char kInsecable = '\xA0';
constexpr bool EstBlancDeCellule(char c) { return c == ' ' || c == '\t' || c == kInsecable; }

// The cell without the blanks, tabs and no-break spaces around it, and without such a dress.
inline std::string_view RognerCellule(std::string_view cellule) {
  while (!cellule.empty() && EstBlancDeCellule(cellule.front())) cellule.remove_prefix(1);
  while (!cellule.empty() && EstBlancDeCellule(cellule.back())) cellule.remove_suffix(1);
  if (!cellule.empty() && (cellule.front() == '=' || cellule.front() == '\'')) return SansHabit(cellule);
  return cellule;
}

// Reads a trimmed cell; nothing when it is anything but one number ("5 %", "1E2", "1 2", "12 ans").
std::optional<NombreDeCellule> LireNombre(std::string_view cellule);
// The same under the signs of its column; nothing either for a number with another sign, or one that may be two.
std::optional<NombreDeCellule> LireNombre(std::string_view cellule, const SignesDeNombres& signes);

// True for a day, an hour or both in the writings of spreadsheets and surveys: 01/03/2024, 2024-03-01 10:22:33...
bool EstDate(std::string_view cellule);

// The title of a column without tags, entities, line ends and outer blanks.
std::string NettoyerIntitule(std::string_view intitule);

}  // namespace quelvar::capture
