// The changes of modalities as the command line knows them.
#pragma once

#include "core/options/description.h"
#include "modalities/correction/modifmod.h"

namespace quelvar::modalities {

const Description<OptionsModifMod>& DescriptionModifMod();

}  // namespace quelvar::modalities
