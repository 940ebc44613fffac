// The options of the factor graph as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "factor/plan/graphe.h"

namespace quelvar::factor {

// The frame that the form reaches by hundreds of presses, and no more.
inline constexpr int kZoomAuMoins = 1;  // percent
inline constexpr int kZoomAuPlus = 1'000'000;
inline constexpr int kDeplacementAuPlus = 10'000'000;  // thousandths of the window

const Description<OptionsGraphe>& DescriptionGraphe();

}  // namespace quelvar::factor
