// Prints a linear regression: the table of data, the description of the variables, the variance, the parameters.
#pragma once

#include <string_view>

#include "core/programme/rapport.h"
#include "regression/reglin/moindrescarres.h"
#include "regression/reglin/resultats.h"
#include "regression/reglin/variables.h"

namespace quelvar::regression {

void ImprimerEnteteDeTable(Rapport& rapport, const VariablesDeRegression& variables);
// The values of a data line as they stand, before any logarithm.
void ImprimerLigneDeTable(Rapport& rapport, std::string_view ligne, const VariablesDeRegression& variables);

// `individus`: those of the regression. Behind a table that is cut nothing more is printed.
void ImprimerDescription(Rapport& rapport, double individus, const VariablesDecrites& decrites);
// `signification` is the text of the F test.
void ImprimerVariance(Rapport& rapport, const AjustementLineaire& ajustement, std::string_view signification);
void ImprimerParametres(Rapport& rapport, const VariablesDeRegression& variables, const ParametresEstimes& estimes);

}  // namespace quelvar::regression
