// The ellipses on the picture of the factor plane.
#pragma once

#include <span>
#include <string>

#include "core/dessin/dessin.h"
#include "factor/ellipses/ellipses.h"

namespace quelvar::factor {

// What stands behind line 1 of the .MOD in the title of the picture; empty without an ellipse.
std::string SuiteDuTitre(const ChoixEllipses& choix);

// Draws the chords, and a mark and "PM" with the label or the name at each centre.
void TracerEllipses(Dessin& dessin, std::span<const EllipsesDeModalite> modalites);
void TracerCentres(Dessin& dessin, std::span<const EllipsesDeModalite> modalites, bool intitulesLongs, Police police);

}  // namespace quelvar::factor
