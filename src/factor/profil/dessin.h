// The picture of profiles: a bar of PEM for each modality, attraction to the right, repulsion to the left.
#pragma once

#include <span>

#include "core/dessin/dessin.h"
#include "factor/profil/profil.h"

namespace quelvar::factor {

// One page in points, the profiles one below the other. Bars whose chi-square passes the threshold of 5 % are filled;
// the elements are the ranks of the rows through all profiles.
Dessin DessinerProfils(std::span<const ProfilDeModalite> profils);

}  // namespace quelvar::factor
