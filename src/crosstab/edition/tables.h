// A two-way table as tables of data, for the editions of the report and for the files of tables.
#pragma once

#include <vector>

#include "core/resultats/tableau.h"
#include "crosstab/edition/editions.h"

namespace quelvar::crosstab {

// Of a table whose total is not 0; in the wide edition with contributions and local PEM.
TablesCroisees EnTables(const TableauTitre& titre, bool etendues);

// Adds what a file of tables shows: counts, percentages, and the statistics (chi-square, degrees of freedom,
// probability, PEM).
void AjouterTables(const TableauTitre& titre, TablesCroisees tables, std::vector<TableauEdite>& liste);

}  // namespace quelvar::crosstab
