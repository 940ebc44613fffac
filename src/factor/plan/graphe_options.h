// The options of the factor graph as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "factor/plan/graphe.h"

namespace quelvar::factor {

const Description<OptionsGraphe>& DescriptionGraphe();

}  // namespace quelvar::factor
