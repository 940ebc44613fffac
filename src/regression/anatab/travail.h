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

// DE= of the .MOD.
inline constexpr int kTableauxImprimes = 1;   // the 2 x 2 table of every sub-effect
inline constexpr int kRapportsDeChances = 2;  // effects are odds-ratios
inline constexpr int kFichiersGardes = 3;     // the work files stay behind a normal end

struct TravailDAnatab {
  explicit TravailDAnatab(Modele m) : modele(std::move(m)), individus(modele.LargeurFiche()) {}

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

  // What DE= asks for.
  bool TableauxDemandes() const { return parametres.de == kTableauxImprimes; }
  MesureDEffet MesureDemandee() const {
    return parametres.de == kRapportsDeChances ? MesureDEffet::RapportDeChances : MesureDEffet::Points;
  }
  bool FichiersGardes() const { return parametres.de == kFichiersGardes; }
};

// Whether a fit tells the effect of an explanatory modality: some individual of the situations that were kept has it.
bool EstEstimee(const TravailDAnatab& travail, std::size_t k);

// Writes .CD2, .CD4, .cd6 and .cd8 as they stand at the stage that the run has reached.
void LaisserLesFichiers(const Contexte& contexte, const TravailDAnatab& travail);
// Writes .cd7, the list of the situations.
void EcrireListeFinale(const Contexte& contexte, const TravailDAnatab& travail);
// Deletes the work files, those of an earlier run too.
void EffacerLesFichiers(const Contexte& contexte);

}  // namespace quelvar::regression
