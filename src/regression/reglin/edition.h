// Prints a linear regression: the table of data, the description of the variables, the variance, the parameters.
#pragma once

#include <string>
#include <string_view>

#include "core/programme/report.h"
#include "regression/reglin/moindrescarres.h"
#include "regression/reglin/variables.h"

namespace quelvar::regression {

void ImprimerEnteteDeTable(Rapport& rapport, const VariablesDeRegression& variables);
// The values of a data line as they stand, before any logarithm.
void ImprimerLigneDeTable(Rapport& rapport, std::string_view ligne, const VariablesDeRegression& variables);

// Raises kArgumentIncorrect for a variance that rounding has made negative, kDivisionParZero for the corrected
// deviation of one individual, behind the lines that are sound.
void ImprimerDescription(Rapport& rapport, const VariablesDeRegression& variables, const Dispersion& dispersion);
// `significance` is the text of the F test.
void ImprimerVariance(Rapport& rapport, const AjustementLineaire& ajustement, std::string_view signification);
// Raises kDivisionParZero for a standard error of 0.
void ImprimerParametres(Rapport& rapport, const VariablesDeRegression& variables, const AjustementLineaire& ajustement);

}  // namespace quelvar::regression
