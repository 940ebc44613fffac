// The options of the creation of modalities as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "modalities/creation/posmod.h"

namespace quelvar::modalities {

const Description<OptionsPosmod>& DescriptionPosmod();

}  // namespace quelvar::modalities
