// The exchange sort of the sorted edition, whose steps decide the order of equal keys.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace quelvar::factor {

// Indices of the keys in increasing order as the exchange sort leaves them: for each place a, for each later place b,
// the two are exchanged when the key at a is above the key at b. The exchanges are found by a tree of minima, so that
// a large table costs n log n steps and not n squared.
std::vector<std::size_t> OrdreParEchanges(std::span<const int> cles);

}  // namespace quelvar::factor
