// The lines of the ellipses in the report.
#pragma once

#include "core/programme/report.h"
#include "factor/ellipses/ellipses.h"

namespace quelvar::factor {

void ImprimerEllipses(Rapport& rapport, const EllipsesDeModalite& modalite);

}  // namespace quelvar::factor
