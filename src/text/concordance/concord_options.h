// The options of the concordance as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "text/concordance/concord.h"

namespace quelvar::text {

const Description<OptionsConcordance>& DescriptionConcordance();

}  // namespace quelvar::text
