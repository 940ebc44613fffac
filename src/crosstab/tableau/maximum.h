// The maximum table: the one with the margins of a given table, and its order, where the association is largest.
#pragma once

#include <span>

#include "core/calcul/matrice.h"

namespace quelvar::crosstab {

enum class Diagonale { Principale, Autre };

// The diagonal that a table leans to, from its deviations in proportions at the corners (first or last row, first or
// last column); a tie goes to the other diagonal.
Diagonale ChoisirDiagonale(double premierePremiere, double premiereDerniere, double dernierePremiere,
                           double derniereDerniere);

// Loads the diagonal, from the first row on, as far as the margins allow; all other cells are 0. For whole counts the
// margins of the result are those given.
// Source: the north-west corner rule of G. B. Dantzig, "Linear Programming and Extensions" (1963), which for this
// purpose also starts from the north-east corner.
Matrice TableauMaximum(std::span<const double> totauxLignes, std::span<const double> totauxColonnes,
                       Diagonale diagonale);

}  // namespace quelvar::crosstab
