// The parameter line (line 2) of a .MOD file: keywords recognised by two letters, shared by every reader of a table.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "core/programme/report.h"

namespace quelvar {

struct ParametresMod {
  double lignes = 0;             // LIGN=: total number of rows
  double colonnes = 0;           // COL=: total number of columns
  double lignesSup = 0;          // LSUP=: supplementary rows
  std::int16_t colonnesSup = 0;  // JSUP=: supplementary columns
  std::int16_t largeur = 0;      // FMT= or LA=: characters of a cell
  std::int16_t burt = 0;         // BRT=: 0 plain table, 1 Burt table with individuals, else size of a square Burt table
  bool modPresent = false;       // MOD= stands on the line
  std::string mod;               // its text, trimmed on the right
  std::int32_t decimales = 0;    // DE=: of the residual tables of a factor analysis
  double cdg = 0;                // CDG=: individuals are available as logical coding

  // DE= for a program that reads a choice of its own there.
  std::int32_t ChoixDe() const { return decimales; }
};

// A parameter line: a blank before each key, a blank behind the last value. The keys end in "=".
struct CleDeParametre {
  template <std::integral Entier>
  CleDeParametre(std::string_view laCle, Entier laValeur) : cle(laCle), valeur(static_cast<std::int64_t>(laValeur)) {}

  std::string_view cle;
  std::int64_t valeur;
};
std::string LigneDeParametres(std::span<const CleDeParametre> cles);
inline std::string LigneDeParametres(std::initializer_list<CleDeParametre> cles) {
  return LigneDeParametres(std::span(cles.begin(), cles.size()));
}

// Parses the line. A token without "=" writes "Arret : manque signe = dans ligne 2 de *.MOD" to the report (when there
// is one) and leaves every parameter unset. Raises kDepassementCapacite for a value beyond its type.
ParametresMod LireParametres(std::string_view ligne, Rapport* rapport);

}  // namespace quelvar
