// Prints the account of a sort.
#pragma once

#include <string_view>

#include "core/programme/rapport.h"
#include "utilities/tri/compte.h"

namespace quelvar::utilities {

// The banner and the names of the two files, as typed.
void ImprimerTeteDuTri(Rapport& rapport, std::string_view source, std::string_view resultat);
// Lines of unequal lengths are told by their mean: raises kDivisionParZero, behind what stands before it, without any.
void ImprimerCompteDuTri(Rapport& rapport, const CompteDeTri& compte);

}  // namespace quelvar::utilities
