// Whether the coordinates are those of the present table: the inertias of its rows and columns are computed again, and
// compared with those that stand beside the coordinates.
//
// Each function returns true when nothing speaks against the file, which includes a table that is too large to be
// computed again or whose origin is not there.
#pragma once

#include "core/programme/programme.h"

namespace quelvar::factor {

// The lines of .FAJ: the columns in their order, with the inertias that they have in the table now.
bool CoordonneesSontDuTableau(const Contexte& contexte);
// The same, and the active rows of the table are in .FAI, each by its label with the inertia that it has now.
bool CoordonneesDesLignesSontDuTableau(const Contexte& contexte);

}  // namespace quelvar::factor
