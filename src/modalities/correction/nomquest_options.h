// The names of questions as the command line knows them.
#pragma once

#include "core/options/description.h"
#include "modalities/correction/nomquest.h"

namespace quelvar::modalities {

const Description<OptionsNomQuest>& DescriptionNomQuest();

}  // namespace quelvar::modalities
