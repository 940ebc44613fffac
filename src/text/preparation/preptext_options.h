// The options of the text preparation as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "text/preparation/preptext.h"

namespace quelvar::text {

const Description<OptionsPrepText>& DescriptionPrepText();

}  // namespace quelvar::text
