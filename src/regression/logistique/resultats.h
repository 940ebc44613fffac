// What the fit of a model has found, as tables of data.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/resultats/tableau.h"
#include "regression/anatab/travail.h"
#include "regression/logistique/sorties.h"

namespace quelvar::regression {

// The modalities whose effect the fit leaves at 0, each with the reason behind its label. The search would carry to
// infinity the effect of one that settles the answer: its situations take no part in the fit.
std::vector<std::string> EffetsNonEstimes(const TravailDAnatab& travail);
// The labels of these parameters, by rank.
std::vector<std::string> IntitulesDesParametres(const Modele& modele, const std::vector<std::size_t>& rangs);

// The constant, for a logistic model its exponential, and the percentage of the reference situation.
TableauEdite TableauDeLaConstante(const TravailDAnatab& travail, const ModeleAjuste& ajuste);
// The coefficients, for a logistic model their odds-ratios, and the effects in points.
TableauEdite TableauDesParametres(const TravailDAnatab& travail, const ModeleAjuste& ajuste);
// -2 log-likelihood of the constant alone and of the model, and the chi-square of their ratio.
TableauEdite TableauDesVraisemblances(const ModeleAjuste& ajuste, const TestsDuModele& tests);
// The chi-square of each coefficient, the probability to exceed it, and its mark; a label for a test that is
// impossible.
TableauEdite TableauDesTests(const TravailDAnatab& travail, const TestsDuModele& tests);
// Of each explanatory modality a mean, its distance from the general one, and that of the observed mean, in points.
// `sorte`: what the means are.
TableauEdite TableauDesMoyennes(const TravailDAnatab& travail, const std::vector<double>& moyennes,
                                std::string_view sorte);

}  // namespace quelvar::regression
