// Picture of the effects of a tabular analysis: one line a modality, the reference at zero.
#pragma once

#include <optional>
#include <string>
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
  bool nouvelleQuestion = false;     // set apart from the line before
};

struct ImageDesEffets {
  std::string titre;
  std::vector<LigneDEffet> lignes;
};

// The mean with an interval of one standard deviation on both sides, and the logistic effect below it, on a page in
// points. The scale holds everything drawn; the legend stands under it.
Dessin DessinerEffets(const ImageDesEffets& image);

}  // namespace quelvar::regression
