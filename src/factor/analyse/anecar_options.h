// The options of the factor analysis as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "factor/analyse/anecar.h"
#include "factor/coordonnees.h"

namespace quelvar::factor {

inline constexpr int kFacteursAuMoins = 2;  // that the form lets one choose

const Description<OptionsAnecar>& DescriptionAnecar();

}  // namespace quelvar::factor
