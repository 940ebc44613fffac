// Printing of the flat sort: headers and blocks of the tables, and the points of the triangular graph.
#pragma once

#include <cstdint>
#include <string>

#include "core/programme/rapport.h"
#include "sorts/triapl/tableau.h"
#include "sorts/triapl/triapl.h"

namespace quelvar::sorts {

// Individuals of a weighted survey, and those that there were before.
void ImprimerPonderation(Rapport& rapport, std::int64_t individus, std::int64_t avant);
// The lines above the tables.
void ImprimerTitreDesTris(Rapport& rapport, const OptionsTriapl& options);

// The line "Question ..."; `nonReponses` is told when it is not null.
std::string EnTeteDe(const Question& question, const double* nonReponses);

// The titles and the blocks of a table; no block for a question without any code present.
void ImprimerTableau(Rapport& rapport, const TableauEdite& tableau);

// Line of a question in a .TRG: a blank, the name, the three percentages, the label or the name.
std::string LigneTriangle(const Question& question, const PartsTrg& parts);

}  // namespace quelvar::sorts
