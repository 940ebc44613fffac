// Printing of a recoding: its table in the report, and the position file of the new generic.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/programme/rapport.h"
#include "sorts/recodage/plan.h"

namespace quelvar::sorts {

// Name of a recoded question in the new file.
std::string NomNeuf(const Question& question, ModeRecodage mode);

// The line of a VIT in the echo of the instructions.
std::string LigneDeVit(std::size_t numero, std::string_view nom);

void ImprimerTableRecodage(Rapport& rapport, const Consignes& consignes, const PlanDeRecodage& plan);

// The counts of the size line of the new position file; `avantPonderation` 0 leaves the parentheses out.
struct TailleNeuve {
  std::int64_t individus = 0;
  std::int64_t avantPonderation = 0;
};

void EcrirePosNeuf(Ecrivain& sortie, const Consignes& consignes, const PlanDeRecodage& plan, const TailleNeuve& taille,
                   const std::string& generique);

}  // namespace quelvar::sorts
