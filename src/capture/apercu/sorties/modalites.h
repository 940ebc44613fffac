// The .MOD files of an import: labels of the codes made, and the variables of the numbers kept.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/sorties/plan.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// What the labels could not keep.
struct IntitulesPerdus {
  std::vector<std::string> coupes;   // longer than a line of .MOD keeps
  std::vector<std::string> communs;  // names of modalities that two codes share
  std::size_t gardes = 0;            // labels of the former .MOD that stay, behind "**"
};

bool AvecIntitules(const PlanDImport& plan);
// Labels of all codes made; those that `ancien` has for other questions of the plan stay.
IntitulesPerdus EcrireModalites(Ecrivain& mod, std::string_view generique, const PlanDImport& plan,
                                const std::optional<Chemin>& ancien);
// The variables of the generic of the numbers, as the numeric regression reads them.
void EcrireVariables(Ecrivain& mod, std::string_view generique, const PlanDImport& plan);

}  // namespace quelvar::capture
