// The data set for a spreadsheet: one line of titles, one line for each individual.
#pragma once

#include <string>
#include <vector>

#include "core/programme/programme.h"

namespace quelvar::utilities {

struct OptionsExportCsv {
  bool tabulation = false;  // the cells are separated by tabs instead of ";"
  bool utf8 = false;        // UTF-8 with its mark instead of Windows-1252
  bool codes = false;  // codes instead of labels, under titles that begin with the names: what an import reads back
  bool choix = false;  // also generic and ".IMC": with it an import finds names and codes again under labels

  bool operator==(const OptionsExportCsv&) const = default;
};

// Report: "$$$.prt", empty unless a file is missing. Writes generic and ".csv"; where there is one already, a box asks
// before it is replaced. A value outside its codes reads as a non-response; a box tells how many there were, and the
// questions of which two codes are written alike. Raises kArgumentIncorrect, with the question, for a position below 1.
Fin ExporterCsv(const Contexte& contexte, const OptionsExportCsv& options);

}  // namespace quelvar::utilities
