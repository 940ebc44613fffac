// The report of a profile, in columns.
#pragma once

#include "core/programme/rapport.h"
#include "factor/profil/profil.h"

namespace quelvar::factor {

// With `detail` the columns of the chi-square too.
void ImprimerProfil(Rapport& rapport, const ProfilDeModalite& profil, bool detail);

}  // namespace quelvar::factor
