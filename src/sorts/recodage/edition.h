// Printing of a recoding: its table in the report.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/programme/rapport.h"
#include "sorts/recodage/plan.h"

namespace quelvar::sorts {

// The line of a VIT in the echo of the instructions.
std::string LigneDeVit(std::size_t numero, std::string_view nom);

void ImprimerTableRecodage(Rapport& rapport, const Consignes& consignes, const PlanDeRecodage& plan);

}  // namespace quelvar::sorts
