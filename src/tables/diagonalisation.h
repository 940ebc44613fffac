// Orders a counted table by its first factor and builds the maximum table that the association measures compare it
// with.
#pragma once

#include "crosstab/tableau/maximum.h"
#include "crosstab/tableau/premierfacteur.h"
#include "tables/tableaucompte.h"

namespace quelvar::tables {

// Which dimensions are put in the order of the first factor; the others keep that of the table.
struct OrdresTries {
  bool lignes = true;
  bool colonnes = true;
};

struct Diagonalisee {
  crosstab::PremierFacteur facteur;  // coordinates in the order that the table had before
  TableauCompte table;               // in the order of the first factor
  Matrice maximum;                   // of the margins and the order of `table`
};

// Extracts the first factor, with the shares of the totals as weights, then orders and loads the diagonal. The signs
// of the start and the score that the stop test follows are those of the first column and row that anybody is in.
// Raises 11 for a table of total 0, and the numbers of ExtrairePremierFacteur.
Diagonalisee Diagonalisation(const TableauCompte& table, OrdresTries tries);

// The diagonal that the corners of a table lean to. Raises 11 for a total of 0, 9 without cells.
crosstab::Diagonale DiagonaleDe(const TableauCompte& table);

}  // namespace quelvar::tables
