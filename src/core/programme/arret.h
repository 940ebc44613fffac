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

// The line above the words of an error or of a warning, in the report and in the forms.
inline constexpr std::string_view kTitreErreur = "*** Erreur ***";
inline constexpr std::string_view kTitreAttention = "*** Attention ***";

// Stops the run (kArretAnnonce) behind the lines that tell why a reader gave nothing; without lines it goes on.
inline void ArreterSurMessage(Rapport& rapport, const std::vector<std::string>& message) {
  rapport.Lignes(message);
  if (!message.empty()) throw Erreur(kArretAnnonce);
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
