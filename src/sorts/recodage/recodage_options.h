// The options of the recoding as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "sorts/recodage/recodage.h"

namespace quelvar::sorts {

const Description<OptionsRecodage>& DescriptionRecodage();

}  // namespace quelvar::sorts
