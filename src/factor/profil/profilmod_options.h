// The options of ProfilMod as the companion and the form name them.
#pragma once

#include "core/options/description.h"
#include "factor/profil/profilmod.h"

namespace quelvar::factor {

const Description<OptionsProfil>& DescriptionProfilMod();

}  // namespace quelvar::factor
