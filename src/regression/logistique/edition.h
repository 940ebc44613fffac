// Prints a fitted model: parameters, tests, and its outputs in probability.
#pragma once

#include <cstddef>
#include <vector>

#include "core/programme/rapport.h"
#include "regression/anatab/travail.h"
#include "regression/logistique/sorties.h"

namespace quelvar::regression {

// `indistincts`: the ranks of the parameters that the data do not tell apart.
void ImprimerParametres(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                        const std::vector<std::size_t>& indistincts);
void ImprimerTests(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                   const TestsDuModele& tests);
// `moyennes` of each explanatory modality.
void ImprimerEffetExperimental(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                               const std::vector<double>& moyennes);
void ImprimerEffetPur(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                      const std::vector<double>& ajustees);

}  // namespace quelvar::regression
