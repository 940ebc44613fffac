// The values of cells as texts: numbers as they are stored, dates and times in ISO 8601, whatever the sheet shows.
#pragma once

#include <string>
#include <string_view>

namespace quelvar::capture::classeur {

// The number of a cell without exponent: 15 significant digits at most, which gives back every number that was typed;
// a whole number keeps all its digits. What is no number stays as it stands.
std::string TexteDuNombre(std::string_view stocke);

// What the format of a cell makes of its number.
enum class Sens { Nombre, Date, Heure };
// By the code of a format ("dd/mm/yyyy", "[h]:mm"): letters of dates outside of quotes and brackets.
Sens SensDuFormat(std::string_view code);
// By the number of a format that has no code in the workbook (ECMA-376, part 1, 18.8.30).
Sens SensDuFormatPredefini(int numero);

// A count of days as "2024-01-15", "2024-01-15 10:30:00" or "10:30:00". `depuis1904`: days count from the first of
// January 1904, else from the end of 1899, with the 29th of February 1900 that never was. A number that is no date
// stays a number.
std::string TexteDeLaDate(std::string_view stocke, Sens sens, bool depuis1904);

// "PT10H30M00S" as "10:30:00"; "2024-01-15T00:00:00" as "2024-01-15", with an hour as "2024-01-15 10:30:00"; others as
// they stand.
std::string TexteDeLaDuree(std::string_view iso);
std::string TexteDuJour(std::string_view iso);

}  // namespace quelvar::capture::classeur
