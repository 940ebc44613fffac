// The options of Triang as the companion and the form name them.
#pragma once

#include "core/options/description.h"
#include "tables/triangle/triang.h"

namespace quelvar::tables {

const Description<OptionsTriang>& DescriptionTriang();

}  // namespace quelvar::tables
