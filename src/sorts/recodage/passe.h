// The pass over the individuals of a recoding: each line is translated, and written as often as it weighs.
#pragma once

#include <cstdint>

#include "core/programme/programme.h"
#include "sorts/recodage/traduction.h"

namespace quelvar::sorts {

struct BilanDePasse {
  std::int64_t entree = 0;   // lines read
  std::int64_t retenus = 0;  // lines that the filter keeps
  std::int64_t sortie = 0;   // lines that the filter and the weights give
  std::int64_t pas = 1;      // one line in so many of those is written
  std::int64_t ecrites = 0;
};

// Runs the pass. With a weighting and without the maximum effective the output is thinned to about ten times what the
// filter keeps: the first line, then one in `pas`; the weights are summed in a pass of their own before. Raises
// kArgumentIncorrect with the question for a field that can't be cut, kDepassementCapacite for a value beyond its type,
// and the failures of the reader and the writer.
BilanDePasse PasserIndividus(const Consignes& consignes, const PlanDeRecodage& plan, const Chemin& donnees,
                             Ecrivain& sortie, const TemoinsDePasse& temoins, const Dialogue& ecran);

// Length of the longest of the first `maximum` lines.
std::int64_t LongueurDesLignes(const Chemin& donnees, std::int64_t maximum);

}  // namespace quelvar::sorts
