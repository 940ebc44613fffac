// The instructions of the preparation of a recoding as the command line knows them.
#pragma once

#include "core/options/description.h"
#include "sorts/preparation/script.h"

namespace quelvar::sorts {

const Description<OptionsPrepRecod>& DescriptionPrepRecod();

}  // namespace quelvar::sorts
