// Import of any table saved as dBase: first field the names of the rows, last field their long names, cells between.
#pragma once

#include "core/programme/programme.h"

namespace quelvar::capture {

struct OptionsImportTableau {
  bool operator==(const OptionsImportTableau&) const = default;
};

// Makes .BRT and .MOD of the .DBF of the generic, with an account in .IMP. Stops with kIndiceHorsSelection for fewer
// than three fields and for more rows without a name of their own than there are names, kIncompatibiliteType for a word
// among the counts, kFinDeFichierDepassee for a file without rows.
Fin ImportTableau(const Contexte& contexte, const OptionsImportTableau& options);

// The wording of an unexpected error of the two imports of tables.
LibellesErreur LibellesDesTableaux();

}  // namespace quelvar::capture
