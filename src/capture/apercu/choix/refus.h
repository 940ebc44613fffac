// What stops an import under its choices, as sentences that name column, line and value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// Why a cell that the choice cannot take stops the import.
std::string_view RaisonDuRefus(const ChoixDeColonne& choix, const FaitsDeColonne& colonne, std::string_view cellule);

// Faulty cells that the choice does not count as 0, those beyond the ones that are kept among them.
std::int64_t FautesRestantes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);
// Classes of which neither the bounds nor the number of groups are known.
bool SansBornes(const ChoixDeColonne& choix);

// Texts that could not be told apart once written, where the choice makes codes or answers of them.
std::vector<std::string> RefusDesTextes(const std::vector<ChoixDeColonne>& choix,
                                        const std::vector<FaitsDeColonne>& colonnes);
// These and all else that the choices cannot take; empty when all is well.
std::vector<std::string> RefusDesChoix(const std::vector<ChoixDeColonne>& choix,
                                       const std::vector<FaitsDeColonne>& colonnes);

}  // namespace quelvar::capture
