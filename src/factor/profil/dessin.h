// The picture of a profile: a bar of PEM for each modality, attraction to the right, repulsion to the left.
#pragma once

#include "core/dessin/dessin.h"
#include "factor/profil/edition.h"

namespace quelvar::factor {

// One page in points, as high as the profile is long. Bars whose chi-square passes the threshold of 5 % are filled; the
// elements are the ranks of the rows.
Dessin DessinerProfil(const ProfilDeModalite& profil);

}  // namespace quelvar::factor
