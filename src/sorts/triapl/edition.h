// Printing of the flat sort: headers and blocks of the tables, and the points of the triangular graph.
#pragma once

#include <string>

#include "core/programme/rapport.h"
#include "sorts/triapl/tableau.h"

namespace quelvar::sorts {

// The line "Question ..."; `nonReponses` is told when it is not null.
std::string EnTeteDe(const Question& question, const double* nonReponses);

// The titles and the blocks of a table; no block for a question without any code present.
void ImprimerTableau(Rapport& rapport, const TableauEdite& tableau);

// Line of a question in a .TRG: a blank, the name, the three percentages, the label or the name.
std::string LigneTriangle(const Question& question, const PartsTrg& parts);

}  // namespace quelvar::sorts
