// The options of the profiles of modalities as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "tables/ecapem.h"

namespace quelvar::tables {

const Description<OptionsEcapem>& DescriptionEcapem();

}  // namespace quelvar::tables
