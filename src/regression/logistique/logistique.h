// The second stage of Anatab: a linear and a logistic model fitted by the likelihood, from the tabular effects on.
#pragma once

#include "core/programme/programme.h"
#include "regression/anatab/travail.h"
#include "regression/logistique/sorties.h"

namespace quelvar::regression {

// Start values: of the linear model the reference situation and the tabular means, of the logistic one the logits that
// the linear coefficients lead to. Raises kDivisionParZero for a probability of 1 and kArgumentIncorrect for one of 0.
Parametres DepartLineaire(const TravailDAnatab& travail);
Parametres DepartLogistique(const TravailDAnatab& travail, const Parametres& lineaires);

// Fits, tests and prints both models behind the tabular analysis; returns the logistic one.
ModeleAjuste AjusterLesModeles(const Contexte& contexte, Rapport& rapport, const TravailDAnatab& travail);

}  // namespace quelvar::regression
