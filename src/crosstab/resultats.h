// A two-way table as tables of data: counts, percentages of the rows, statistics.
#pragma once

#include <vector>

#include "core/resultats/tableau.h"
#include "crosstab/edition.h"

namespace quelvar::crosstab {

// Counts with their margins; percentages of the rows with the share of each row and column, marked "+" in a cell above
// the mean of its column and "-" in the others; chi-square, degrees of freedom, probability and PEM. Nothing for a
// table of total 0.
std::vector<TableauEdite> EnTableaux(const TableauTitre& titre);

}  // namespace quelvar::crosstab
