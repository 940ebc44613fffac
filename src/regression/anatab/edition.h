// Prints the model of a tabular analysis, its data before any grouping, and its situations.
#pragma once

#include "core/programme/rapport.h"
#include "regression/anatab/analyse.h"
#include "regression/anatab/base.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

// What parts the parts of the report.
inline constexpr std::string_view kEtoiles = "*************************************";

// The questions and the modalities with what each of them is in the model, and the title of the data.
void ImprimerModele(Rapport& rapport, const Modele& modele);
void ImprimerDonneesDeBase(Rapport& rapport, const Modele& modele, const DonneesDeBase& base);
void ImprimerSituations(Rapport& rapport, const AnalyseTabulaire& analyse);

}  // namespace quelvar::regression
