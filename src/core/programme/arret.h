// How a run stops by its own will: behind the line of its report that tells why.
#pragma once

#include <string>
#include <utility>
#include <vector>

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

// Tells the lines and stops the run (kArretAnnonce); without lines it goes on.
inline void ArreterSi(Rapport& rapport, const std::vector<std::string>& lignes) {
  rapport.Lignes(lignes);
  if (!lignes.empty()) throw Erreur(kArretAnnonce);
}

// What a reader has found that stops the run: its lines, none when it may go on, and the fault for the screen when its
// place is known.
struct ArretDeLecture {
  std::vector<std::string> lignes{};
  FauteSituee faute{};
};
// Tells the lines with a beep and stops the run; without lines it goes on.
inline void ArreterSi(Rapport& rapport, const Dialogue& ecran, ArretDeLecture arret) {
  if (arret.lignes.empty()) return;
  rapport.Lignes(arret.lignes);
  ecran.biper();
  throw Erreur(std::move(arret.faute));
}

}  // namespace quelvar
