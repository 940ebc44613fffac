// Anatab: a modality explained by those of several questions, by the tabular analysis and then by the likelihood of a
// linear and of a logistic model, in one report.
#pragma once

#include <string>

#include "core/programme/programme.h"
#include "regression/images/effets.h"

namespace quelvar::regression {

struct OptionsAnatab {
  std::string image = {};  // file of the picture of the effects; none is drawn when it is empty

  bool operator==(const OptionsAnatab&) const = default;
};

// Reads the coding of the .MOD and the logical coding, writes the .TRP. What else it needs stands in the .MOD (DE=).
// A population of the situations kept below 50 % is put to the user.
Fin Anatab(const Contexte& contexte, const OptionsAnatab& options = {});
// The same; after a normal end `effets` has what the picture shows.
Fin Anatab(const Contexte& contexte, const OptionsAnatab& options, ImageDesEffets& effets);

}  // namespace quelvar::regression
