// Prints what the utilities report of the files that they read and write, and of the cells that a table gave them.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/programme/programme.h"
#include "utilities/exportation.h"
#include "utilities/gendat.h"
#include "utilities/inversion.h"

namespace quelvar::utilities {

void ImprimerTeteDesCaracteres(Rapport& rapport, std::string_view source);

void ImprimerTeteDeLExportation(Rapport& rapport, const OptionsExportation& options);
// `lignes`: those of the result.
void ImprimerBilanDeLExportation(Rapport& rapport, std::int64_t lignes, bool complementaire);

void ImprimerTeteDeGendat(Rapport& rapport, const Contexte& contexte);
void ImprimerReservesDeGendat(Rapport& rapport, const BilanGendat& bilan);

void ImprimerReservesDeLInversion(Rapport& rapport, const ReservesDeLInversion& reserves);
// The change from one generic to the other, each of its parts between empty lines.
void ImprimerFinDeLInversion(Rapport& rapport, const Contexte& contexte, std::string_view nouveau);

}  // namespace quelvar::utilities
