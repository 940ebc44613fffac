// What can be said of the association in a two-way table, cell by cell and summed: shares, deviations, contributions,
// local PEM.
#pragma once

#include <vector>

#include "crosstab/tableau/compte.h"
#include "crosstab/tableau/pemlocal.h"

namespace quelvar::crosstab {

// Local PEM of each cell, in percent, with the chi-square of its 2 x 2 table. Raises the failures of PemLocal.
struct AttractionsDuTableau {
  Matrice pem;
  Matrice khi2;
};
AttractionsDuTableau CalculerAttractions(const TableauCompte& table);

// What deviations are counted in. The sums differ by the total, and by the rounding of their last digits.
enum class Echelle { Effectifs, Proportions };

// Sums over the cells of a table, in index order; cells of theoretical count 0 enter no chi-square.
struct SommesDEcarts {
  double positifs = 0;  // sum of the positive deviations from the theoretical value
  double khi2 = 0;      // in proportions that of the counts over their total
};

// The cells may be others than those that have the margins: a maximum table has the margins of its table.
SommesDEcarts SommerEcarts(const Matrice& cellules, const Marges& marges, Echelle echelle);

// A percentage to one decimal, half up, as the editions of a table and its picture show it: 6.25 becomes 6.3.
double AuDixieme(double pourcentage);

// Cell by cell, what the editions of a table show. The total must not be 0.
struct DetailsDuTableau {
  std::vector<double> partsLignes;    // share of each row in the total, percent
  std::vector<double> partsColonnes;  // share of each column in the total, percent
  Matrice pourcentages;               // row percentages; 0 in an empty row
  Matrice differences;                // row percentage less the column's share
  Matrice theoriques;
  Matrice ecarts;         // count less theoretical count
  Matrice contributions;  // to the chi-square; 0 where the theoretical count is 0
};
DetailsDuTableau Detailler(const TableauCompte& table);

}  // namespace quelvar::crosstab
