// Whether a tree is that of the present coordinates, and they of the present modalities: its steps are found again, and
// compared. Only of trees that are too large for that the date counts.
//
// Each function returns true when nothing speaks against the file, which includes a table that is too large to be
// computed again or whose origin is not there.
#pragma once

#include "core/programme/programme.h"
#include "factor/classement/cah.h"

namespace quelvar::factor {

// The steps of a tree: those that .FJ2, or the last lines of .FI2, give by one of the two methods.
bool ArbreEstDesCoordonnees(const Contexte& contexte, const ArbreCah& arbre);

// The names of .FJ2, in the order of the .MOD.
bool CoordonneesSontDesModalites(const Contexte& contexte);

}  // namespace quelvar::factor
