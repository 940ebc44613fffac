// The new record of a recoding: code tables, new code-maxes, widths and positions of the recoded questions and of the
// VIT.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sorts/recodage/consignes.h"

namespace quelvar::sorts {

// A recoded question in the new record.
struct ChampNeuf {
  std::size_t question = 0;
  std::vector<int> table;  // new code by old code, from 0 to the old code-max
  int codeMax = 0;         // largest new code
  int position = 0;        // first column, from 1
  int largeur = 1;
  int liberees = 0;        // columns that its shorter code leaves free, in place
  bool tropLarge = false;  // a new code does not fit the width
};

struct VitNeuve {
  std::size_t demandee = 0;  // index in the instructions
  int codeMax = 0;           // theoretical: the largest score
  bool ramene = false;       // it was above 999
  int position = 0;
  int largeur = 1;
};

struct PlanDeRecodage {
  std::vector<ChampNeuf> champs;  // in the order of the rules
  std::vector<VitNeuve> vits;
  std::int64_t longueur = 0;  // columns of a record before what is put behind it; 0 when only the recoded are kept
};

inline constexpr int kCodeMaximum = kCodeMaxL3;

// Columns that a code takes in a new field: 1 below 10, 2 below 100, else 3.
constexpr int LargeurNeuve(int codeMax) { return codeMax < 10 ? 1 : codeMax < 100 ? 2 : 3; }

// The tables and widths of the questions with a rule.
std::vector<ChampNeuf> CompleterChamps(const Consignes& consignes);

// Columns that the questions of a file take at least, for lines that are `longueurLignes` long.
std::int64_t LongueurEnregistrement(const std::vector<Question>& questions, std::int64_t longueurLignes);

// Lays out the new record behind `longueur` columns. Raises kDepassementCapacite for a position beyond four columns.
PlanDeRecodage Disposer(const Consignes& consignes, std::vector<ChampNeuf> champs, std::int64_t longueur);

}  // namespace quelvar::sorts
