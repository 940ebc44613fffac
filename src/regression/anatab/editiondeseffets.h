// Prints the effects that the tabular analysis has found, and their sub-effects.
#pragma once

#include <array>
#include <string>

#include "core/programme/rapport.h"
#include "regression/anatab/analyse.h"
#include "regression/anatab/modele.h"
#include "regression/anatab/resultats.h"

namespace quelvar::regression {

// The 2 x 2 table of a sub-effect: heading, two rows, total, each of 50 characters unless a count is wider.
std::array<std::string, 4> LignesDeLaPaire(const TableDePaire& table);

// "Paramètres de l'analyse tabulaire" and its title, up to the line that announces the reference situation.
void ImprimerTitreParametres(Rapport& rapport, const Modele& modele, MesureDEffet mesure);
void ImprimerReference(Rapport& rapport, const AnalyseTabulaire& analyse);
// `tableaux`: with the 2 x 2 table of every sub-effect.
void ImprimerEffets(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, bool tableaux);
void ImprimerResume(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele);

}  // namespace quelvar::regression
