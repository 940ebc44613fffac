// The text of a concordance, as it is shown, printed and saved.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>

#include "text/concordance/concord.h"

namespace quelvar::text {

// A title, then the lines in the order of these ranks: at most so many of them, and it is then said how many there are.
std::string TexteDeConcordances(const Concordances& concordances, std::span<const std::uint32_t> rangs,
                                std::size_t auPlus = std::numeric_limits<std::size_t>::max());

}  // namespace quelvar::text
