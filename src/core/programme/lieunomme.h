// A failure in a text that has named its file already.
#pragma once

#include <string>

#include "core/panne/erreur.h"

namespace quelvar {

// As TexteErreur, of the place the line and the column alone.
std::string TexteErreurDuFichierNomme(const Erreur& erreur);

}  // namespace quelvar
