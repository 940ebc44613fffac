#include "core/chiffres/nombres.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/panne/erreur.h"
#include "core/texte/caracteres.h"

namespace quelvar {

namespace {

// Significant digits that a number is written with: as many as its type holds whatever the number.
constexpr int kChiffresDUnDouble = 15;
constexpr int kChiffresDUnSimple = 7;

// The characters of one number, gathered without the blanks between them, in the writing that from_chars takes.
struct ChiffresLus {
  std::string texte;  // sign "-", digits, point, exponent with "e"
  bool chiffres = false;
  std::size_t fin = 0;  // first character of the source that does not belong to it
};

std::size_t SauterBlancs(std::string_view t, std::size_t i) {
  while (i < t.size() && t[i] == ' ') ++i;
  return i;
}

// Reads "E", an optional sign and digits; leaves everything as it was when no digit follows.
void LireExposant(std::string_view t, ChiffresLus& nombre) {
  std::size_t i = SauterBlancs(t, nombre.fin);
  if (i >= t.size() || (t[i] != 'E' && t[i] != 'e' && t[i] != 'D' && t[i] != 'd')) return;
  std::string exposant = "e";
  i = SauterBlancs(t, i + 1);
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) {
    if (t[i] == '-') exposant += '-';
    i = SauterBlancs(t, i + 1);
  }
  if (i >= t.size() || !EstChiffre(t[i])) return;
  for (; i < t.size() && EstChiffre(t[i]); i = SauterBlancs(t, i + 1)) {
    exposant += t[i];
    nombre.fin = i + 1;
  }
  nombre.texte += exposant;
}

ChiffresLus LireNombre(std::string_view t) {
  ChiffresLus nombre;
  std::size_t i = 0;
  while (i < t.size() && (t[i] == ' ' || t[i] == '\t')) ++i;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) {
    if (t[i] == '-') nombre.texte += '-';
    i = SauterBlancs(t, i + 1);
  }
  bool point = false;
  for (; i < t.size() && (EstChiffre(t[i]) || (t[i] == '.' && !point)); i = SauterBlancs(t, i + 1)) {
    if (t[i] == '.') point = true;
    else nombre.chiffres = true;
    nombre.texte += t[i];
    nombre.fin = i + 1;
  }
  if (nombre.chiffres) LireExposant(t, nombre);
  return nombre;
}

double Convertir(const ChiffresLus& nombre) {
  double valeur = 0;
  const char* fin = nombre.texte.data() + nombre.texte.size();
  const auto [_, erreur] = std::from_chars(nombre.texte.data(), fin, valeur);
  if (erreur != std::errc::result_out_of_range) return valeur;
  // from_chars does not tell an overflow from an underflow; strtod does.
  valeur = std::strtod(nombre.texte.c_str(), nullptr);
  if (std::isinf(valeur)) throw Erreur(kDepassementCapacite);
  return valeur;
}

template <typename Entier>
Entier EnEntier(double valeur) {
  const double arrondi = ArrondirPair(valeur);
  // The upper bound of 64 bits is not a double: compare with the power of two above it.
  const double borne = std::ldexp(1.0, std::numeric_limits<Entier>::digits);
  if (!(arrondi >= -borne && arrondi < borne)) throw Erreur(kDepassementCapacite);
  return static_cast<Entier>(arrondi);
}

template <typename T>
std::string EnTexte(T valeur, int chiffres) {
  if (std::isnan(valeur)) throw Erreur(kArgumentIncorrect);
  if (std::isinf(valeur)) throw Erreur(kDepassementCapacite);
  if (valeur == 0) return "0";
  std::array<char, 40> tampon{};  // the digits, a point, a sign and an exponent of five characters are fewer
  const auto [fin, _] =
      std::to_chars(tampon.data(), tampon.data() + tampon.size(), valeur, std::chars_format::general, chiffres);
  std::string texte(tampon.data(), fin);
  for (char& c : texte)
    if (c == 'e') c = 'E';
  return texte;
}

}  // namespace

double ValeurDe(std::string_view texte) {
  // Nearly every number of a file is a short run of digits.
  std::size_t i = 0;
  while (i < texte.size() && texte[i] == ' ') ++i;
  std::int64_t entier = 0;
  const std::size_t debut = i;
  while (i < texte.size() && i - debut < kChiffresDUnDouble && EstChiffre(texte[i]))
    entier = entier * 10 + (texte[i++] - '0');
  if (i == texte.size()) return static_cast<double>(entier);

  const ChiffresLus nombre = LireNombre(texte);
  return nombre.chiffres ? Convertir(nombre) : 0;
}

bool EstNombre(std::string_view texte) {
  const ChiffresLus nombre = LireNombre(texte);
  return nombre.chiffres && texte.find_first_not_of(" \t", nombre.fin) == std::string_view::npos;
}

double ArrondirPair(double valeur) {
  return std::nearbyint(valeur);  // the rounding mode is never changed: to nearest, ties to even
}

double Arrondir(double valeur, int decimales) {
  const double echelle = std::pow(10.0, decimales);
  const double arrondi = ArrondirPair(valeur * echelle) / echelle;
  return arrondi == 0 ? 0 : arrondi;
}

std::int16_t Entier16(double valeur) { return EnEntier<std::int16_t>(valeur); }
std::int32_t Entier32(double valeur) { return EnEntier<std::int32_t>(valeur); }
std::int64_t Entier64(double valeur) { return EnEntier<std::int64_t>(valeur); }

float Simple(double valeur) {
  if (!(std::fabs(valeur) <= static_cast<double>(std::numeric_limits<float>::max())))
    throw Erreur(kDepassementCapacite);
  return static_cast<float>(valeur);
}

std::string Nombre(double valeur) { return EnTexte(valeur, kChiffresDUnDouble); }
std::string Nombre(float valeur) { return EnTexte(valeur, kChiffresDUnSimple); }
std::string Nombre(std::int64_t valeur) { return std::to_string(valeur); }

}  // namespace quelvar
