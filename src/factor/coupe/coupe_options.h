// The options of the cut of a tree as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "factor/coupe/coupe.h"

namespace quelvar::factor {

const Description<OptionsCoupe>& DescriptionWardCoupe();

}  // namespace quelvar::factor
