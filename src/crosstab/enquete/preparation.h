// The preparation of the crosstabs: the survey is read, and the report and the screen tell what was found.
#pragma once

#include <string_view>

#include "core/programme/programme.h"
#include "crosstab/enquete/questions.h"

namespace quelvar::crosstab {

// Reads the files of the generic, tells in the report what it finds and has a user of level 2 settle the ceiling of the
// codes. `fichierDonnees` stands for the .DAT of the generic unless it is empty. Raises the errors of LirePos and of
// LireEnquete, and stops (kArretAnnonce) for a missing file, bad parentheses or too many questions.
EnqueteCroisee PreparerEnquete(Rapport& rapport, const Contexte& contexte, std::string_view fichierDonnees);

}  // namespace quelvar::crosstab
