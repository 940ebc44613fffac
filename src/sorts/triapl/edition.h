// Printing of the flat sort: headers and blocks of the tables, and the file of the triangular graph.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/programme/report.h"
#include "sorts/triapl/tableau.h"

namespace quelvar::sorts {

// The line "Question ..."; `nonReponses` is told when it is not null.
std::string EnTeteDe(const Question& question, const double* nonReponses);

// The titles and the blocks of a table; no block for a question without any code present.
void EcrireTableau(Rapport& rapport, const TableauEdite& tableau);

// Title and vertices of the triangular graph.
struct EnTeteTriangle {
  std::string titre;
  std::array<std::string, 3> sommets;
};

// Line of a question in a .TRG: a blank, the name, the three percentages, the label or the name.
std::string LigneTriangle(const Question& question, const EffectifsTriangle& effectifs);

}  // namespace quelvar::sorts
