// Picture of the effects of a tabular analysis: one line a modality, the reference at zero.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dessin/dessin.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::regression {

struct LigneDEffet {
  std::string intitule;
  bool reference = false;
  std::optional<double> moyenne;     // of the sub-effects, percentage points
  double ecartType = 0;              // of the sub-effects, points
  std::optional<double> logistique;  // effect of the logistic model, points
};

// The mean with an interval of one standard deviation on both sides, and the logistic effect below it. The scale holds
// everything drawn.
Dessin DessinerEffets(std::string_view titre, const std::vector<LigneDEffet>& lignes);

}  // namespace quelvar::regression
