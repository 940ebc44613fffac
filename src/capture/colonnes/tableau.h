// The columns that an import has made, as a table of data for the drivers.
#pragma once

#include <vector>

#include "capture/colonnes/colonne.h"
#include "core/resultats/tableau.h"

namespace quelvar::capture {

// A row a column: its number in the source, code-max, first position and width in .DAT, then its name and whether .POS
// has it, and its title. Without titles there is no .POS: number, position and width alone.
TableauEdite TableauDesColonnes(const std::vector<ColonneImportee>& colonnes, bool sansIntitules);

}  // namespace quelvar::capture
