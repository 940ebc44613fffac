// The options of the flat sort as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "sorts/triapl/triapl.h"

namespace quelvar::sorts {

const Description<OptionsTriapl>& DescriptionTriapl();

}  // namespace quelvar::sorts
