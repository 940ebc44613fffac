// The framed tables of a report: cells of two lines with several values, labels cut over the same two lines, cut in
// pages. Widths are minima here too: a value that needs more widens every cell of its table.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/report.h"

namespace quelvar {

// A way to write a value in its place of a cell: digits before the point, decimals, blanks behind; for values below
// `sous`.
struct EcritureEnCase {
  int entiers = 5;
  int decimales = 0;
  int blancs = 0;
  double sous = std::numeric_limits<double>::infinity();
};

// The value by the first of these that it is below, `supplement` columns wider than usual.
std::string TexteEnCase(double valeur, std::span<const EcritureEnCase> ecritures, int supplement);

// The largest value that a place holds, and the columns where it has one blank before it.
struct PlaceEnCase {
  double plusGrande = 0;
  int decimales = 0;
  int usuelles = 0;
};

struct FormeCadree {
  int cellule = 12;  // columns of a label and of a cell before any widening
  std::size_t lignesParPage = 1;
  std::size_t colonnesParPage = 1;
};

struct TableCadree {
  std::array<std::string_view, 2> coin;
  std::vector<std::string_view> lignes;  // labels
  std::vector<std::string_view> colonnes;
  std::vector<PlaceEnCase> places;  // those that may widen the cells
  // Line 0 or 1 of a cell, so many columns wider than usual, with the sign that closes it.
  std::function<std::string(std::size_t i, std::size_t j, std::size_t ligne, int supplement)> texte;
};

// Pages of rows by pages of columns, three blank lines behind each.
void ImprimerCadre(Rapport& rapport, const TableCadree& table, const FormeCadree& forme);

}  // namespace quelvar
