// The run of a request: its program, with the generic held from the first of its runs to the last.
#pragma once

#include "batch/commande.h"

namespace quelvar::batch {

// `demande` is consumed. Raises a sentence (kPermissionRefusee) when another process holds the generic, UsageIncorrect
// for an option.
Fin ExecuterCommande(LigneDeCommande& demande);

}  // namespace quelvar::batch
