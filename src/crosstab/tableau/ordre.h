// Puts a two-way table in the order of its first factor, and builds the maximum table that its measures of association
// compare it with.
#pragma once

#include "crosstab/tableau/compte.h"
#include "crosstab/tableau/maximum.h"
#include "crosstab/tableau/premierfacteur.h"

namespace quelvar::crosstab {

// The rows and columns where a factor starts and that stand at the corners. Tous: any of them; a factor starts at the
// first that anybody is in. CodesPleins: those that anybody is in and whose rank, the code, is not 0.
enum class Bords { Tous, CodesPleins };

// First factor, with the shares of the totals as weights; coordinates in the order of the table. Raises
// kDivisionParZero for a total of 0, and the failures of ExtrairePremierFacteur.
PremierFacteur FacteurDe(const TableauCompte& table, Bords bords, int toursMax = kToursMaxDuFacteur);

// The diagonal that the corners of a table lean to; the other one without corners. Raises kDivisionParZero for a total
// of 0, kIndiceHorsSelection without cells.
Diagonale DiagonaleDe(const TableauCompte& table, Bords bords);

// Maximum table of the margins and the order of a table. Raises the failures of DiagonaleDe.
Matrice MaximumDe(const TableauCompte& table, Bords bords);

}  // namespace quelvar::crosstab
