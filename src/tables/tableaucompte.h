// A counted table in memory: cells, totals, and where each row and column stands in the files.
#pragma once

#include <cstddef>
#include <vector>

#include "core/calcul/matrice.h"

namespace quelvar::tables {

struct TableauCompte {
  Matrice effectifs;
  std::vector<double> totauxLignes;
  std::vector<double> totauxColonnes;
  double total = 0;
  // Rank in the files, from 0, of each row and column of the present order.
  std::vector<std::size_t> rangsLignes;
  std::vector<std::size_t> rangsColonnes;
};

// The table of these cells in the order of the files. Raises 6 when a total is beyond a double.
TableauCompte Compter(Matrice effectifs);

// The rows and columns of those places, counted from 0, in that order.
TableauCompte Reordonner(const TableauCompte& table, const std::vector<std::size_t>& lignes,
                         const std::vector<std::size_t>& colonnes);

}  // namespace quelvar::tables
