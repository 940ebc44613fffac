// Which parameters of a likelihood its observations do not tell apart.
#pragma once

#include <cstddef>
#include <vector>

#include "regression/logistique/vraisemblance.h"

namespace quelvar::regression {

// The ranks of the parameters that the profiles do not determine, though each of them is in some: another set of values
// gives every profile the same score, and differs in these. They are those that the row-reduced matrix of the profiles
// ties to a column without pivot. Source: G. Strang, "Linear Algebra and Its Applications" (2006), chapter 2.
std::vector<std::size_t> ParametresIndistincts(const Observations& observations);

}  // namespace quelvar::regression
