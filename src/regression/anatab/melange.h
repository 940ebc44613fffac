// Whether the order of the records has kept every situation together: a key of fifteen digits cannot tell long records
// apart, and situations then fall to pieces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "regression/anatab/fiches.h"

namespace quelvar::regression {

struct Melange {
  std::size_t situations = 0;   // that the individuals are in
  std::size_t morceaux = 0;     // that the order makes of them
  std::size_t inversees = 0;    // in which a no stands in front of a yes: it is then counted as one
  std::int64_t population = 0;  // of the situations that an exact order would keep, individuals
};

// Nothing when each record stands in one place, beside those of its situation. `possibles` counts the records that
// there can be: only where some are missing are the situations without a yes, or without a no, left out.
std::optional<Melange> MelangeDesFiches(const Individus& individus, const std::vector<Comptee>& comptees,
                                        double possibles);

}  // namespace quelvar::regression
