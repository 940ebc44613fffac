// Gendat: from a counted table back to individuals, one line of .DAT for each unit of a cell, and their .POS.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar::utilities {

struct OptionsGendat {
  bool operator==(const OptionsGendat&) const = default;
};

// Names of the questions of rows, columns and blocks: the parts of a title that holds "/", the defaults for those that
// it lacks.
std::array<std::string, 3> NomsDesQuestions(std::string_view titre);

// Report: generic and ".prt". Writes .DAT and .POS of the generic; a former .POS is kept as .PO2. Where there is a .DAT
// already, a box asks before it is replaced. Cells are rounded, negative ones make no individual, both are told.
// Raises kDepassementCapacite for more than 999 rows, columns or blocks.
Fin Gendat(const Contexte& contexte, const OptionsGendat& options);

}  // namespace quelvar::utilities
