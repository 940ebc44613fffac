// The options of the naming of modalities as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "modalities/correction/nomemod.h"

namespace quelvar::modalities {

const Description<OptionsNomeMod>& DescriptionNomeMod();

}  // namespace quelvar::modalities
