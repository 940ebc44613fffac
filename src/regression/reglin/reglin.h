// Reglin: least squares of one numeric variable on several others, from the table that the .MOD describes.
#pragma once

#include "core/programme/programme.h"

namespace quelvar::regression {

// Reads the .MOD and the .CDG, or the table that MOD= names under DE=2; writes the .REG.
Fin Reglin(const Contexte& contexte);

}  // namespace quelvar::regression
