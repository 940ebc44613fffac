// The position file that a recoding writes for the new generic.
#pragma once

#include <cstdint>
#include <string>

#include "core/fichiers/fichiers.h"
#include "sorts/recodage/plan.h"

namespace quelvar::sorts {

// Name of a recoded question in the new file.
std::string NomNeuf(const Question& question, ModeRecodage mode);

// The counts of the size line of the new position file; `avantPonderation` 0 leaves the parentheses out.
struct TailleNeuve {
  std::int64_t individus = 0;
  std::int64_t avantPonderation = 0;
};

void EcrirePosNeuf(Ecrivain& sortie, const Consignes& consignes, const PlanDeRecodage& plan, const TailleNeuve& taille,
                   const std::string& generique);

}  // namespace quelvar::sorts
