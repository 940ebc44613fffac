#include "batch/execution.h"

#include "batch/dialogue.h"
#include "core/fichiers/generiquetenu.h"

namespace quelvar::batch {

Fin ExecuterCommande(LigneDeCommande& demande) {
  Dialogue dialogue = DialogueBatch(demande);
  const Contexte contexte{demande.repertoire, demande.generique, demande.niveau, &dialogue};
  const GeneriqueTenu tenu(contexte.repertoire, contexte.generique, demande.programme->nom,
                           GeneriqueTenu::Duree::PlusieursRuns);
  return demande.programme->executer(contexte, demande.options);
}

}  // namespace quelvar::batch
