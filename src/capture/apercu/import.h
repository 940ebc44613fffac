// Import of any table under the choices made for its columns: .DAT, .POS, labels in .MOD, texts in .TXT, numbers under
// the generic followed by N, the choices in .IMC, an account in .IMP. The window and the companion both come here.
#pragma once

#include "capture/apercu/choix/demande.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

// Runs the import; a .dbf goes to the dBase import. Every failure is told in the report; former files stay whole until
// the normal end.
Fin Importer(const Contexte& contexte, const OptionsImport& options);

// Prints the table of the columns of a file, and what would become of them; writes nothing.
Fin MontrerApercu(const Contexte& contexte, const OptionsImport& options);

}  // namespace quelvar::capture
