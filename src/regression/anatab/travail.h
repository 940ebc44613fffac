// What a run of Anatab goes through, and the work files in which a run that stops leaves it.
#pragma once

#include <optional>
#include <vector>

#include "core/enquete/parametres.h"
#include "core/programme/programme.h"
#include "regression/anatab/analyse.h"
#include "regression/anatab/base.h"
#include "regression/anatab/fiches.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

enum class Etape { Rien, Lecture, Tri, SansPaire, Situations, SousEffets };

struct Travail {
  explicit Travail(Modele m) : modele(std::move(m)), individus(modele.LargeurFiche()) {}

  Modele modele;
  ParametresMod parametres;
  Individus individus;
  std::vector<NumeroFiche> triees;  // the records of the individuals, sorted
  std::vector<Comptee> comptees;    // neighbours counted together; the pairs only where some are missing
  bool filtrees = false;            // only pairs were kept
  std::optional<Melange> melange;   // the order has taken situations apart
  DonneesDeBase base;
  AnalyseTabulaire analyse;
  Etape etape = Etape::Rien;

  ChoixEdition Choix() const { return {parametres.de == 1, parametres.de == 2}; }
};

// Whether a fit tells the effect of an explanatory modality: some individual of the situations that were kept has it.
bool EstEstimee(const Travail& travail, std::size_t k);

// Writes .CD2, .CD4, .cd6 and .cd8 as they stand at the stage that the run has reached.
void LaisserLesFichiers(const Contexte& contexte, const Travail& travail);
// Writes .cd7, the list of the situations.
void EcrireListeFinale(const Contexte& contexte, const Travail& travail);
// Deletes the work files, those of an earlier run too.
void EffacerLesFichiers(const Contexte& contexte);

}  // namespace quelvar::regression
