// The parameter line (line 2) of a .MOD file: keywords recognised by two letters, shared by every reader of a table.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"

namespace quelvar {

inline constexpr std::int64_t kLigneDesParametres = 2;  // of a .MOD

struct ParametresMod {
  double lignes = 0;             // LIGN=: total number of rows
  double colonnes = 0;           // COL=: total number of columns
  double lignesSup = 0;          // LSUP=: supplementary rows
  std::int16_t colonnesSup = 0;  // JSUP=: supplementary columns
  std::int16_t largeur = 0;      // FMT= or LA=: characters of a cell
  std::int16_t burt = 0;         // BRT=: 0 plain table, 1 Burt table with individuals, else size of a square Burt table
  bool modPresent = false;       // MOD= stands on the line
  std::string mod;               // its text, trimmed on the right
  std::int32_t de = 0;           // DE=: decimals for a factor analysis; an order, a threshold or a choice elsewhere
  double cdg = 0;                // CDG=: individuals are available as logical coding

  std::vector<std::string> remarques;  // lines for the report
};

// A key, which ends in "=", and its value. In the line a blank stands before each key and behind the last value.
struct CleDeParametre {
  template <std::integral Entier>
  CleDeParametre(std::string_view laCle, Entier laValeur)
      : cle(laCle), valeur(Nombre(static_cast<std::int64_t>(laValeur))) {}
  // A value taken over from a file, which may not be whole.
  CleDeParametre(std::string_view laCle, double laValeur) : cle(laCle), valeur(Nombre(laValeur)) {}

  std::string_view cle;
  std::string valeur;
};
// The line of these keys and values, in their order.
std::string LigneDeParametres(std::span<const CleDeParametre> cles);
inline std::string LigneDeParametres(std::initializer_list<CleDeParametre> cles) {
  return LigneDeParametres(std::span(cles.begin(), cles.size()));
}

// Parses the line of the file `nomMod`. A token without "=" leaves every parameter unset, with the remark "Arret :
// manque signe = dans ligne 2 de *.MOD". Raises kDepassementCapacite for a value beyond its type, at line 2 of that
// file.
ParametresMod LireParametres(std::string_view ligne, std::string_view nomMod);

// What is wrong with a .MOD that does not tell the width of the cells, in the words of one report or of another:
// "Erreur : pas de FMT=" or "Erreur : pas de parametre FMT= dans le fichier ENQ.MOD". Its place is the parameter line.
enum class MotsDuFormat { SansLeFichier, AvecLeFichier };
FauteSituee FauteDeFormat(std::string_view nomMod, MotsDuFormat mots);

}  // namespace quelvar
