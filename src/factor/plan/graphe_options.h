// The options of the factor graph as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "factor/plan/graphe.h"

namespace quelvar::factor {

// The frame that the form reaches by hundreds of presses, and no more.
inline constexpr double kZoomAuMoins = 1;  // percent
inline constexpr double kZoomAuPlus = 1e6;
inline constexpr double kDeplacementAuPlus = 1e7;  // thousandths of the window

const Description<OptionsGraphe>& DescriptionGraphe();

}  // namespace quelvar::factor
