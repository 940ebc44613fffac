// Import of a dBase file, or of a data file that stands alone: .DAT, .POS, and a flat count in .IMP.
#pragma once

#include "core/programme/programme.h"

namespace quelvar::capture {

struct OptionsImportDbf {
  bool operator==(const OptionsImportDbf&) const = default;
};

// Runs the import of the generic: its .DBF when there is one, else its .DAT. A .DAT beside its .POS is only counted.
// The former .DAT and .POS stay in place until the normal end; what was converted, left out or renamed is told in a
// box.
Fin ImportDbf(const Contexte& contexte, const OptionsImportDbf& options);

}  // namespace quelvar::capture
