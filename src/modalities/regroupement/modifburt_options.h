// The options of ModifierBurt as the companion and the form name them.
#pragma once

#include "core/options/description.h"
#include "modalities/regroupement/modifburt.h"

namespace quelvar::modalities {

const Description<OptionsModifBurt>& DescriptionModifBurt();

}  // namespace quelvar::modalities
