// The options of the lexical table as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "text/tableau/tabmot.h"

namespace quelvar::text {

inline constexpr int kFrequenceLaPlusHaute = 99999999;

const Description<OptionsTabMot>& DescriptionTabMot();

}  // namespace quelvar::text
