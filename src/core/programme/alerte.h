// What several programs tell or ask in a box.
#pragma once

#include <string_view>

#include "core/programme/dialogue.h"
#include "core/texte/texte.h"

namespace quelvar {

// What the report has no words for, with a beep.
inline void AlerterEnBoite(const Dialogue& ecran, Texte texte) {
  ecran.biper();
  ecran.demander(texte.Vue(), Boutons::Ok);
}

// Whether a file that is there may be replaced.
inline bool PeutEtreRemplace(const Dialogue& ecran, std::string_view fichier, Boutons boutons) {
  return ecran.demander(Joindre({"Le fichier ", fichier, " existe déjà : il va être remplacé. L'acceptez-vous ?"_w}),
                        boutons) == Reponse::Oui;
}

}  // namespace quelvar
