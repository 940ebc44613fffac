// The classification that may follow a factor analysis: points read from the coordinate files, report, tree file .CAH
// and steps file .CSV.
#pragma once

#include <cstddef>
#include <optional>

#include "core/programme/programme.h"
#include "factor/classement/ward.h"

namespace quelvar::factor {

struct OptionsWard {
  MethodeWard methode = MethodeWard::Distances;
  bool individus = false;  // the lines of .FI2 instead of those of .FJ2
  bool etapesCsv = false;  // write the .CSV of the steps

  bool operator==(const OptionsWard&) const = default;
};

// Classifies on that many factors and appends to the report. With `derniers` only that many lines at the end of the
// file are taken, the individuals behind the modalities of a Burt table. Elements too far apart stop the run with a
// line. Raises 53 without the coordinate file.
void ClasserWard(const Contexte& contexte, Rapport& rapport, std::size_t facteurs, const OptionsWard& options,
                 std::optional<std::size_t> derniers);

}  // namespace quelvar::factor
