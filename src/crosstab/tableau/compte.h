// A two-way table of counts: cells, margins, and where each row and column stood before it was ordered.
#pragma once

#include <cstddef>
#include <vector>

#include "core/calcul/matrice.h"

namespace quelvar::crosstab {

// Totals of a table of counts.
struct Marges {
  std::vector<double> lignes;
  std::vector<double> colonnes;
  double total = 0;
};
Marges MargesDe(const Matrice& effectifs);

// Deviation from independence of a cell, in proportions of the total: n/N - (row/N)(column/N).
inline double EcartEnProportions(double effectif, const Marges& marges, std::size_t i, std::size_t j) {
  return effectif / marges.total - (marges.lignes[i] / marges.total) * (marges.colonnes[j] / marges.total);
}

// Each total times the factor, over all.
std::vector<double> Parts(const std::vector<double>& totaux, double total, double facteur = 1);

// Places, counted from 0, of the totals above 0.
std::vector<std::size_t> PlacesPleines(const std::vector<double>& totaux);

struct TableauCompte {
  Matrice effectifs;
  Marges marges;
  // Rank at the origin, from 0, of each row and column of the present order: a line of a file, or a code.
  std::vector<std::size_t> rangsLignes;
  std::vector<std::size_t> rangsColonnes;
};

// The table of these cells in the order that they have. Raises kDepassementCapacite when a total is beyond a double.
TableauCompte Compter(Matrice effectifs);

// The rows and columns of those places, counted from 0, in that order; the total and the margins stay.
TableauCompte Reordonner(const TableauCompte& table, const std::vector<std::size_t>& lignes,
                         const std::vector<std::size_t>& colonnes);

// The table with other cells of the same margins, as a maximum table is one of its table.
TableauCompte AvecCellules(const TableauCompte& table, const Matrice& cellules);

}  // namespace quelvar::crosstab
