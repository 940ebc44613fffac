// The steps of a classification as a .CSV.
#pragma once

#include <span>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "factor/classement/ward.h"

namespace quelvar::factor {

// First line of the .CSV of the steps.
inline constexpr std::string_view kTitreDuTableur = " ;Etapes de l'agrégation"_w;
// The classes that each step leaves, for a spreadsheet.
void EcrireTableur(Ecrivain& fichier, std::span<const BilanDEtape> bilans);

}  // namespace quelvar::factor
