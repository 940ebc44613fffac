// Remarks that a run has to tell beside its report, all of them in one box.
#pragma once

#include <string>
#include <vector>

#include "core/programme/dialogue.h"

namespace quelvar::capture {

using Remarques = std::vector<std::string>;

// A line for each, with CR LF between them.
std::string EnLignes(const Remarques& remarques);
// Shows all of them in one box; none, no box.
void MontrerRemarques(const Dialogue& dialogue, const Remarques& remarques);

}  // namespace quelvar::capture
