// The framed tables of a report: cells of two lines with several values, labels cut over the same two lines, cut in
// pages. Widths are minima here too: a value that needs more widens every cell of its table.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "core/programme/rapport.h"
#include "core/resultats/tableau.h"

namespace quelvar {

// A way to write a value in its place of a cell: digits before the point, decimals, blanks behind; for values below
// `sous`.
struct EcritureEnCase {
  int entiers = 5;
  int decimales = 0;
  int blancs = 0;
  double sous = std::numeric_limits<double>::infinity();
};

// One value of each cell: that of the table of data, by the first writing that it is below, or right-aligned with its
// own decimals in `colonnes` where there is no writing; blanks without a value.
struct PlaceEnCase {
  const TableauEdite* tableau = nullptr;  // of the rows and columns that are framed, at least
  std::span<const EcritureEnCase> ecritures = {};
  int colonnes = 0;
  // The largest value, and the columns where it has one blank before it: with more it widens the cells. 0: never.
  double plusGrande = 0;
  int decimales = 0;
  int usuelles = 0;
  bool fermeLaCase = false;  // by its mark, which stands for the line between two cells
};

struct FormeCadree {
  int cellule = 12;  // columns of a label and of a cell before any widening
  std::size_t lignesParPage = 1;
  std::size_t colonnesParPage = 1;
};

inline constexpr std::size_t kLignesDeCase = 2;

struct TableCadree {
  std::array<std::string_view, kLignesDeCase> coin;
  std::vector<std::string_view> lignes;  // labels
  std::vector<std::string_view> colonnes;
  // The values of each line of a cell.
  std::array<std::vector<PlaceEnCase>, kLignesDeCase> places;
};

// Pages of rows by pages of columns, three blank lines behind each.
void ImprimerCadre(Rapport& rapport, const TableCadree& table, const FormeCadree& forme);

}  // namespace quelvar
