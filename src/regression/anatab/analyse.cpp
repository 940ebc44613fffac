#include "regression/anatab/analyse.h"

#include <span>

namespace quelvar::regression {

std::string NomsDeSituation(const AnalyseTabulaire& analyse, std::size_t situation) {
  std::string noms;
  for (const std::uint32_t k : analyse.table.Modalites(situation)) noms += analyse.cellules[k].intitule + ' ';
  return noms;
}

void AjouterSousPopulation(std::string& ligne, const AnalyseTabulaire& analyse, const SousEffet& sousEffet) {
  const std::span<const std::uint32_t> modalites = analyse.table.Modalites(sousEffet.premiere);
  for (std::size_t c = 0; c < modalites.size(); ++c) {
    if (c == sousEffet.question) continue;
    ligne += ' ';
    ligne += analyse.cellules[modalites[c]].intitule;
  }
}

}  // namespace quelvar::regression
