// How a run stops by its own will: behind the line of its report that tells why.
#pragma once

#include <utility>

#include "core/programme/programme.h"

namespace quelvar {

// Writes the line and stops the run (kArretAnnonce).
[[noreturn]] inline void Arreter(Rapport& rapport, Texte ligne) {
  rapport.Ligne(ligne);
  throw Erreur(kArretAnnonce);
}
// The same for a fault in the data: the screen tells it with its place, beside the line of the report.
[[noreturn]] inline void Arreter(Rapport& rapport, Texte ligne, FauteSituee faute) {
  rapport.Ligne(ligne);
  throw Erreur(std::move(faute));
}
// Of a fault whose words are the line.
[[noreturn]] inline void Arreter(Rapport& rapport, FauteSituee faute) {
  rapport.Ligne(faute.phrase);
  throw Erreur(std::move(faute));
}

// The same with a beep.
[[noreturn]] inline void AvertirEtArreter(Rapport& rapport, const Dialogue& ecran, Texte ligne) {
  Avertir(rapport, ecran, ligne);
  throw Erreur(kArretAnnonce);
}
[[noreturn]] inline void AvertirEtArreter(Rapport& rapport, const Dialogue& ecran, FauteSituee faute) {
  Avertir(rapport, ecran, faute.phrase);
  throw Erreur(std::move(faute));
}

}  // namespace quelvar
