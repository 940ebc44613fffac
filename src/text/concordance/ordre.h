// The order of the lines of a concordance.
#pragma once

#include <cstdint>
#include <vector>

#include "text/concordance/concord.h"

namespace quelvar::text {

// Ranks of the lines: by what follows the word, by what stands before it (the nearest word first), or as the file has
// them. Equal lines keep their order.
std::vector<std::uint32_t> RangsDansLOrdre(const Concordances& concordances, OrdreDeConcordance ordre);

}  // namespace quelvar::text
