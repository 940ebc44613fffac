// Gamma of Goodman and Kruskal, along the diagonal that a table leans to.
#pragma once

#include <optional>

#include "core/resultats/tableau.h"
#include "crosstab/tableau/compte.h"

namespace quelvar::tables {

struct Gamma {
  double accords = 0;     // share of the ordered pairs of individuals that lie along the leaning diagonal, from 0 to 1
  double desaccords = 0;  // share of those that lie across it
  std::optional<double> gamma;  // from -1 to 1; nothing without any pair of either kind
};

// Counts the pairs of cells of distinct rows and columns; ties enter no value. The diagonal is that of the corners
// (ChoisirDiagonale), so that gamma is positive for a table that follows the order of its rows and columns either way.
// Raises kDivisionParZero for a table of total 0, kIndiceHorsSelection for one without cells.
// Source: L. A. Goodman and W. H. Kruskal, "Measures of Association for Cross Classifications", Journal of the American
// Statistical Association 49 (1954); there the direction of the columns is given, here the table chooses it.
Gamma CalculerGamma(const crosstab::TableauCompte& table);

// The two shares, and gamma behind them, without a cell when it has no value.
TableauEdite TableDeGamma(const Gamma& gamma);

}  // namespace quelvar::tables
