// Prints what the tabular analysis has found: situations, sub-effects, effects.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/programme/report.h"
#include "regression/anatab/base.h"
#include "regression/anatab/situations.h"
#include "regression/anatab/souseffets.h"

namespace quelvar::regression {

// All that the tabular analysis has found.
struct AnalyseTabulaire {
  std::vector<Cellule> cellules;
  TableSituations table;
  Voisinages voisinages;
  std::vector<Effet> effets;
  std::size_t examinees = 0;  // situations with a chi-square; fewer than there are only behind a failure
  std::size_t reference = 0;  // the reference situation
  Khi2Paire khi2Reference;

  const Situation& Reference() const { return table.situations[reference]; }
  double PartReference() const { return Reference().pourcentage / 100; }
};

struct ChoixEdition {
  bool tableaux = false;   // the 2 x 2 table of every sub-effect
  bool oddsRatio = false;  // effects are odds-ratios
};

// "***" above 6.64, "** " above 3.84, "*  " above 2.71, else "ns ".
std::string_view MarqueDeCellule(int classe);

// The heading of the table of situations, then a line for each that was examined.
void ImprimerSituations(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele);

// The names of the cells of a situation, five characters each.
std::string NomsDeSituation(const AnalyseTabulaire& analyse, std::size_t situation);
// What the two situations of a sub-effect share: a blank and four characters for each modality.
std::string SousPopulation(const AnalyseTabulaire& analyse, const SousEffet& sousEffet);
// The 2 x 2 table of a sub-effect: heading, two rows, total, each of 50 characters unless a count is wider.
std::array<std::string, 4> TableauPaire(const AnalyseTabulaire& analyse, const Modele& modele,
                                        const SousEffet& sousEffet);

// "Paramètres de l'analyse tabulaire" and its title, up to the line that announces the reference situation.
void ImprimerTitreParametres(Rapport& rapport, const Modele& modele, ChoixEdition choix);
void ImprimerReference(Rapport& rapport, const AnalyseTabulaire& analyse);
void ImprimerEffets(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, ChoixEdition choix);
void ImprimerResume(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, ChoixEdition choix);

}  // namespace quelvar::regression
