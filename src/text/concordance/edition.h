// The text of a concordance, as it is shown, printed and saved.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "text/concordance/concord.h"

namespace quelvar::text {

// By what follows the word, by what stands before it (the nearest word first), or as the file has them; equal lines
// keep their order. `rangs` are those of the lines to show.
std::vector<std::uint32_t> RangsDansLOrdre(const Concordances& concordances, OrdreDeConcordance ordre);

// A title, then the lines: at most so many of them, and it is then said how many there are.
std::string TexteDeConcordances(const Concordances& concordances, OrdreDeConcordance ordre,
                                std::size_t auPlus = std::numeric_limits<std::size_t>::max());

}  // namespace quelvar::text
