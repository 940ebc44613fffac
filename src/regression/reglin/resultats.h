// What a linear regression has found, as tables of data.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/panne/erreur.h"
#include "core/resultats/tableau.h"
#include "regression/reglin/moindrescarres.h"
#include "regression/reglin/variables.h"

namespace quelvar::regression {

// The variables by their mean, standard deviation and the same corrected for a sample, the explained one first.
struct VariablesDecrites {
  TableauEdite tableau;
  // Labels of those far from 0 for their spread: moments about 0 have lost too much of it for the digits shown.
  std::vector<std::string> incertaines;
  // What cuts the table in front of a row: kArgumentIncorrect for a variance that rounding has made negative,
  // kDivisionParZero for the corrected deviation of one individual.
  std::optional<NumeroErreur> arret;
};
VariablesDecrites Decrire(const VariablesDeRegression& variables, const Dispersion& dispersion);

// The decomposition of the variance: degrees of freedom, sum of squares and mean square of each source.
TableauEdite TableauDeVariance(const AjustementLineaire& ajustement);

// The constant, an empty row, then the explanatory variables: parameter, standard error, Student ratio and its mark.
struct ParametresEstimes {
  TableauEdite tableau;
  bool arrete = false;  // in front of a parameter that has a standard error of 0, and thus no ratio
};
ParametresEstimes EstimerParametres(const VariablesDeRegression& variables, const AjustementLineaire& ajustement);

// The fields of a data line as they stand, before any logarithm: values with the decimals that the source has.
std::vector<Cellule> CellulesDeLaLigne(std::string_view ligne, const VariablesDeRegression& variables);

}  // namespace quelvar::regression
