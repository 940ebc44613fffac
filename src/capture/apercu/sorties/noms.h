// The short names that the questions and the numbers kept of an import bear in the end.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/sorties/plan.h"

namespace quelvar::capture {

// Names all different, among the questions, then among the numbers. `noms` are those asked for, by column of .DAT,
// `proposes` those that the columns of the table get without any hand; a name that is neither its title's nor the
// user's is among the plan's changed ones. Raises kIndiceHorsSelection, with the column of the table, when no name is
// left.
void NommerLePlan(PlanDImport& plan, std::vector<std::string> noms, const std::vector<std::string>& proposes);

}  // namespace quelvar::capture
