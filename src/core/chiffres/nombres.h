// Numbers of the files: the lenient reading of a text, the roundings, and the bare number that is written without a
// helper.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quelvar {

// Value of the numeric prefix of a text. Leading blanks and tabs are skipped, then blanks anywhere; an optional sign,
// digits with at most one ".", an exponent (E, e, D, d, optional sign, at least one digit); the first character that
// cannot continue stops the reading. No digit gives 0. Raises kDepassementCapacite when the value is beyond a double.
double ValeurDe(std::string_view texte);

// True when the text holds, apart from outer blanks and tabs, one number in the writing above and nothing else.
bool EstNombre(std::string_view texte);

// The powers of ten from 0 to 15: a double holds them exactly, and a whole number below the last one too.
inline constexpr std::array<double, 16> kPuissancesDeDix = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Nearest integer, ties to even.
double ArrondirPair(double valeur);
// Rounded to a number of decimals: times 10^d, ties to even, divided. Never a negative zero.
double Arrondir(double valeur, int decimales);

// Nearest integer as a 16-bit, 32-bit or 64-bit value; raises kDepassementCapacite when it does not fit.
std::int16_t Entier16(double valeur);
std::int32_t Entier32(double valeur);
std::int64_t Entier64(double valeur);
// Nearest single-precision value; raises kDepassementCapacite beyond its range.
float Simple(double valeur);

// The shortest decimal text: at most 15 significant digits for a double, 7 for a single, no trailing zeros, a zero
// before the point. Raises kDepassementCapacite for an infinity and kArgumentIncorrect for what is not a number.
std::string Nombre(double valeur);
std::string Nombre(float valeur);
std::string Nombre(std::int64_t valeur);
inline std::string Nombre(int valeur) { return Nombre(static_cast<std::int64_t>(valeur)); }
inline std::string Nombre(std::size_t valeur) { return Nombre(static_cast<std::int64_t>(valeur)); }

// The bare number of a file: a blank (or "-"), the digits, a blank.
template <typename T>
std::string NombreNu(T valeur) {
  std::string texte = Nombre(valeur);
  if (texte.front() != '-') texte.insert(texte.begin(), ' ');
  texte += ' ';
  return texte;
}

// The number with its leading blank (or "-") and no blank behind, as it stands inside a composed message.
template <typename T>
std::string NombreBlanc(T valeur) {
  std::string texte = NombreNu(valeur);
  texte.pop_back();
  return texte;
}

}  // namespace quelvar
