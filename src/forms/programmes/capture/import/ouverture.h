// The ways into an import: a file that was chosen or dropped, and the source that a generic has beside it.
#pragma once

#include "forms/services/services.h"

namespace quelvar::forms {

// What opens on a file, whatever it is: the preview of a table, the questions of the dBase import; a box tells why a
// file cannot be read. The generic is proposed after the name of the file; the directory is that of the session, or
// that of the file as long as no data set is open.
void ImporterFichier(Services& services, const Chemin& fichier);
// The source that the current generic has already: imported at once when it holds nothing but codes, else previewed.
void ImporterSourceDuGenerique(Services& services, bool toujoursMontrer);

}  // namespace quelvar::forms
