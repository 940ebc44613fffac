// All that the tabular analysis has found.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "regression/anatab/situations.h"
#include "regression/anatab/souseffets.h"

namespace quelvar::regression {

struct AnalyseTabulaire {
  std::vector<CelluleDeSituation> cellules;
  TableSituations table;
  Voisinages voisinages;
  MesureDEffet mesure = MesureDEffet::Points;  // what the effects are
  std::vector<Effet> effets;
  std::size_t examinees = 0;  // situations with a chi-square; fewer than there are only behind a failure
  std::size_t reference = 0;  // the reference situation
  Khi2Paire khi2Reference;

  const Situation& Reference() const { return table.situations[reference]; }
  double PartReference() const { return Reference().pourcentage / 100; }
};

// The names of the cells of a situation, five characters each.
std::string NomsDeSituation(const AnalyseTabulaire& analyse, std::size_t situation);
// Adds what the two situations of a sub-effect share: a blank and four characters for each modality.
void AjouterSousPopulation(std::string& ligne, const AnalyseTabulaire& analyse, const SousEffet& sousEffet);

// Gives `visiter` the sub-effects that compare one modality, in their order, each with its measures. Raises
// kDivisionParZero as Mesurer does.
template <class Visiter>
void ParcourirMesures(const AnalyseTabulaire& analyse, std::size_t modalite, const Visiter& visiter) {
  ParcourirSousEffets(analyse.table, analyse.cellules, analyse.voisinages, modalite, [&](const SousEffet& sousEffet) {
    visiter(sousEffet, Mesurer(sousEffet, analyse.table, analyse.mesure));
  });
}

}  // namespace quelvar::regression
