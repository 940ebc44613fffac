// The files that the imports of dBase find before they run, and how their reports tell them.
#pragma once

#include <optional>

#include "core/programme/programme.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

// The files of a survey.
struct FichiersDBase {
  std::optional<Chemin> dbf;
  std::optional<Chemin> dat;
  std::optional<Chemin> pos;
};
FichiersDBase TrouverFichiersDBase(const Contexte& contexte);

// The source is there and what is made of it, as far as it is `lisible`; without any source stops the run
// (kArretAnnonce).
void ImprimerPresence(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers, bool lisible);
// What becomes of fields that are no questions.
void ImprimerAvis(Rapport& rapport);

// The files of a table, of which the run needs to know whether they are there.
struct FichiersDeTableau {
  std::optional<Chemin> dbf;
  bool brt = false;
  bool mod = false;
};
FichiersDeTableau TrouverFichiersDeTableau(const Contexte& contexte);

// As above.
void ImprimerPresence(Rapport& rapport, const Contexte& contexte, const FichiersDeTableau& fichiers, bool lisible);

}  // namespace quelvar::capture
