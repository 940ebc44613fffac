// Prints the model of a tabular analysis, its data before any grouping, and its situations.
#pragma once

#include <string>

#include "core/programme/rapport.h"
#include "regression/anatab/analyse.h"
#include "regression/anatab/base.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

// What parts the parts of the report.
inline constexpr std::string_view kEtoiles = "*************************************";

// Columns of the whole part of a count within a sentence.
inline constexpr int kEntiersDUnEffectif = 5;

// The questions and the modalities with what each of them is in the model, and the title of the data.
void ImprimerModele(Rapport& rapport, const Modele& modele);
void ImprimerDonneesDeBase(Rapport& rapport, const Modele& modele, const DonneesDeBase& base);
void ImprimerSituations(Rapport& rapport, const AnalyseTabulaire& analyse);
// The individuals in those situations, and their share of all of them in percent.
void ImprimerPopulation(Rapport& rapport, double population, double part);

// A percentage within a sentence. Raises kArgumentIncorrect or kDepassementCapacite for a value that is not finite.
std::string TexteDePourcentage(double pourcentage);

}  // namespace quelvar::regression
