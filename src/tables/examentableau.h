// The path of Ecapem for a rectangular table.
#pragma once

#include "tables/travailecapem.h"

namespace quelvar::tables {

// Reads the table, prints its whole analysis and records its links. Raises kFinDeFichierDepassee when rows are missing,
// kDivisionParZero for a table of total 0 and at the line of an index that has no value.
void ExaminerTableau(const TravailEcapem& travail);

}  // namespace quelvar::tables
