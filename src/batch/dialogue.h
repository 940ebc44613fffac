// The dialogue of quelvar-batch: boxes go to the error output and take their answers from the command line, the
// shown report goes to the standard output.
#pragma once

#include "batch/commande.h"
#include "core/programme/dialogue.h"

namespace quelvar::batch {

// The request must outlive the dialogue, which consumes its answers.
Dialogue DialogueBatch(LigneDeCommande& demande);

}  // namespace quelvar::batch
