// Prints what the preparation of the crosstabs reports of the survey.
#pragma once

#include <cstddef>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "crosstab/enquete/lecture.h"

namespace quelvar::crosstab {

void ImprimerTeteDeLEnquete(Rapport& rapport, const Contexte& contexte, const FichiersCroise& fichiers);

// A code-max above the ceiling, which brings its codes down.
void ImprimerCodeMaxRamene(Rapport& rapport, const Question& question, int plafond);

void ImprimerTropDeQuestions(Rapport& rapport, std::size_t auPlus);
void ImprimerNombreDeQuestions(Rapport& rapport, std::size_t questions);

}  // namespace quelvar::crosstab
