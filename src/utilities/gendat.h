// Gendat: from a counted table back to individuals, one line of .DAT for each unit of a cell, and their .POS.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/programme/programme.h"
#include "utilities/entrees/tableau.h"

namespace quelvar::utilities {

struct OptionsGendat {
  bool operator==(const OptionsGendat&) const = default;
};

// What the cells of the table have given.
struct BilanGendat {
  std::int64_t individus = 0;
  CellulesAPart negatives;       // which make no individual
  CellulesAPart fractionnaires;  // which are rounded
  CellulesSansNombre autres;
  std::int64_t lignesLaissees = 0;  // at the end of the table, which make no whole block
};

// Names of the questions of rows, columns and blocks: the parts of a title that holds "/", the defaults for those that
// it lacks.
std::array<std::string, 3> NomsDesQuestions(std::string_view titre);

// Report: generic and ".prt". Writes .DAT and .POS of the generic; a former .POS is kept as .PO2. Where there is a .DAT
// already, a box asks before it is replaced. Cells are rounded, negative ones make no individual, both are told.
// Raises kDepassementCapacite for more than 999 rows, columns or blocks.
Fin Gendat(const Contexte& contexte, const OptionsGendat& options);

}  // namespace quelvar::utilities
