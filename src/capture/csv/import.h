// Import of a spreadsheet saved as .CSV or .TXT: the fixed columns .DAT, the dictionary .POS when the first line
// holds the titles, and an account in .IMP.
#pragma once

#include "core/programme/programme.h"

namespace quelvar::capture {

struct OptionsImportCsv {
  bool sansIntitules = false;  // the first line is data, and no .POS is made

  bool operator==(const OptionsImportCsv&) const = default;
};

// Runs the import of the generic. Every failure is told in the report; the former .DAT and .POS stay in place until
// the normal end.
Fin ImportCsv(const Contexte& contexte, const OptionsImportCsv& options);

}  // namespace quelvar::capture
