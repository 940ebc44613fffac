// The options of the word cutting as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "text/decoupage/saisiemot.h"

namespace quelvar::text {

const Description<OptionsSaisieMot>& DescriptionSaisieMot();

}  // namespace quelvar::text
