// The three ways to join two files. Each writes C and its .POS, and the lines of the report on it.
#pragma once

#include "utilities/fusion/travail.h"

namespace quelvar::utilities {

// Line beside line. Raises kArretAnnonce, with its lines in the report, for files of unequal length and for more
// identifiers that differ than are allowed; then C holds the lines in front of the last difference.
void FusionnerCoteACote(const TravailDeFusion& travail);

// The lines of B behind those of A.
void FusionnerALaSuite(const TravailDeFusion& travail);

// Each line of A with that of B whose identifier it has, both files in one order; a line of A without one gets zeros.
// Raises kArretAnnonce, with its lines in the report, when one file is not used up; C is left as it stands.
void FusionnerParNumero(const TravailDeFusion& travail);

// Tells that a .POS which stood beside a former C does not describe the new one; nothing when there is none.
void PrevenirDeLAncienPos(const TravailDeFusion& travail);

}  // namespace quelvar::utilities
