// How a run stops by its own will: behind the line of its report that tells why.
#pragma once

#include "core/programme/programme.h"

namespace quelvar {

// Writes the line and stops the run (kArretAnnonce).
[[noreturn]] inline void Arreter(Rapport& rapport, Texte ligne) {
  rapport.Ligne(ligne);
  throw Erreur(kArretAnnonce);
}

// The same with a beep.
[[noreturn]] inline void AvertirEtArreter(Rapport& rapport, const Dialogue& ecran, Texte ligne) {
  Avertir(rapport, ecran, ligne);
  throw Erreur(kArretAnnonce);
}

}  // namespace quelvar
