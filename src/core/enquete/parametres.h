// The parameter line (line 2) of a .MOD file: keywords recognised by two letters, shared by every reader of a table.
#pragma once

#include <cstdint>
#include <string>

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
  std::int32_t decimales = 0;    // DE=
  double cdg = 0;                // CDG=: individuals are available as logical coding
};

// Parses the line. A token without "=" writes "Arret : manque signe = dans ligne 2 de *.MOD" to the report (when there
// is one) and leaves every parameter unset. Raises 6 for a value beyond its type.
ParametresMod LireParametres(std::string_view ligne, Rapport* rapport);

}  // namespace quelvar
