// Orders a counted table by its first factor and builds the maximum table that the association measures compare it
// with.
#pragma once

#include <span>
#include <string_view>

#include "core/resultats/tableau.h"
#include "crosstab/tableau/ordre.h"

namespace quelvar::tables {

// Which dimensions are put in the order of the first factor; the others keep that of the table.
struct OrdresTries {
  bool lignes = true;
  bool colonnes = true;
};

struct Diagonalisee {
  crosstab::PremierFacteur facteur;  // coordinates in the order that the table had before
  crosstab::TableauCompte table;     // in the order of the first factor
  Matrice maximum;                   // of the margins and the order of `table`
};

// Extracts the first factor, then orders and loads the diagonal. Raises the failures of FacteurDe and MaximumDe.
Diagonalisee Diagonalisation(const crosstab::TableauCompte& table, OrdresTries tries);

// The first factor on one side of the table: the labels of its elements, and their coordinates in thousandths as the
// one row.
TableauEdite TableDeLAxe(std::span<const std::string_view> intitules, std::span<const double> coordonnees);

}  // namespace quelvar::tables
