// What can be said of the association in a counted table, as numbers: deviations, PEM, and the global indices.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "core/calcul/matrice.h"
#include "tables/tableaucompte.h"

namespace quelvar::tables {

// Local PEM of each cell, in percent, with the chi-square of its 2 x 2 table.
struct AttractionsDuTableau {
  Matrice pem;
  Matrice khi2;
};
AttractionsDuTableau CalculerAttractions(const TableauCompte& table);

// Sums over the cells of a table, in index order; cells of theoretical count 0 enter no chi-square.
struct SommesDEcarts {
  double positifs = 0;  // sum of the positive deviations from the theoretical count
  double khi2 = 0;
};

// The cells may be others than those of the table: its maximum table has the same totals.
SommesDEcarts SommerEcarts(const TableauCompte& table, const Matrice& cellules);

// Cell by cell, what the editions of a table show. The total must not be 0.
struct DetailsDuTableau {
  std::vector<double> partsLignes;    // share of each row in the total, percent
  std::vector<double> partsColonnes;  // share of each column in the total, percent
  Matrice pourcentages;               // row percentages; 0 in an empty row
  Matrice differences;                // row percentage less the column's share
  Matrice theoriques;
  Matrice ecarts;         // count less theoretical count
  Matrice contributions;  // to the chi-square
};
DetailsDuTableau Detailler(const TableauCompte& table);

// Global indices; one whose divisor is 0 has no value.
struct IndicesGlobaux {
  SommesDEcarts observe;
  SommesDEcarts maximum;
  std::size_t plusPetiteDimension = 0;
  double effectif = 0;
  std::optional<double> pem;             // percent of the sum of positive deviations of the maximum table
  std::optional<double> khi2SurMaximum;  // percent of the chi-square of the maximum table
  std::optional<double> rapportCramer;   // percent
  std::optional<double> vCramer;         // from 0 to 1
};

// V and its square, the ratio: H. Cramér, "Mathematical Methods of Statistics" (1946), 21.9. Raises 5 for a negative
// ratio, which only negative counts can give.
IndicesGlobaux CalculerIndices(const TableauCompte& table, const SommesDEcarts& observe, const SommesDEcarts& maximum);

}  // namespace quelvar::tables
