// The words in front of the sentence that a run stops with; the reports have both spellings.
#pragma once

#include <string_view>

#include "core/texte/texte.h"

namespace quelvar {

inline constexpr std::string_view kArretDuProgramme = "*** Arrêt du programme : "_w;
inline constexpr std::string_view kArretDuProgrammeSansAccents = "*** Arret du programme : ";

// The line above the words of an error or of a warning, in the report and in the forms.
inline constexpr std::string_view kTitreErreur = "*** Erreur ***";
inline constexpr std::string_view kTitreAttention = "*** Attention ***";

}  // namespace quelvar
