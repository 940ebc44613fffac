// The words in front of the sentence that a run stops with; the reports have both spellings.
#pragma once

#include <string_view>

#include "core/texte/texte.h"

namespace quelvar {

inline constexpr std::string_view kArretDuProgramme = "*** Arrêt du programme : "_w;
inline constexpr std::string_view kArretDuProgrammeSansAccents = "*** Arret du programme : ";

// The line above the sentence on what an editing form cannot open.
inline constexpr std::string_view kTitreErreur = "*** Erreur ***";

}  // namespace quelvar
