// The table of one question of a flat sort: counts, total, shares, and the columns that its edition shows.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"

namespace quelvar::sorts {

struct ColonneCode {
  int code = 0;
  double effectif = 0;         // fractional after a weighting
  std::int64_t pourMille = 0;  // share of the total in tenths of percent, rounded half up
  std::string texte;           // label of the modality, or its name without a label; empty without a .MOD line
  int largeur = 5;
};

struct TableauPlat {
  std::vector<ColonneCode> colonnes;  // codes present, ascending
  double total = 0;
  bool etiquete = false;  // a code of the question has a line in the .MOD
  bool elargi = false;    // some count needs more than the plain columns
  int largeurTotal = 4;
  std::string prefixe;  // blanks before each row
  int budget = 75;      // columns of a block, the total's not counted
};

// Share in tenths of percent: the integer part of 1000 times the count over the total, plus 0.5; 0 of a total of 0.
std::int64_t PartEnDixiemes(double effectif, double total);

// Table of a question from its counts by code (index 0 is the non-response). `intitules` is nullptr without labels.
TableauPlat DresserTableau(const Question& question, const std::vector<double>& effectifs, double total,
                           const IntitulesModalites* intitules);

// Table of the cumulated responses: plain columns only. `effectifs` by code, index 0 unused.
TableauPlat DresserCumul(const std::vector<double>& effectifs, double total);

// Ranges [first, last) of columns of each block of the edition: 15 columns in a plain table, by width in a marked one.
struct Bloc {
  std::size_t premier = 0, fin = 0;
};
std::vector<Bloc> DecouperEnBlocs(const TableauPlat& tableau);

// The three counts of a question for the triangular graph, codes 1 to 3.
using EffectifsTriangle = std::array<double, 3>;
EffectifsTriangle TriangleDe(const std::vector<double>& effectifs);

}  // namespace quelvar::sorts
