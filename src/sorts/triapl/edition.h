// Printing of the flat sort: headers and blocks of the tables, the cumulation, and the file of the triangular graph.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/programme/report.h"
#include "sorts/triapl/tableau.h"

namespace quelvar::sorts {

// The line "Question ..."; `nonReponses` is printed when it is not null.
void EcrireEnTete(Rapport& rapport, const Question& question, const double* nonReponses);

// The blocks of a table; none for a question without any code present.
void EcrireTableau(Rapport& rapport, const TableauPlat& tableau);

void EcrireCumul(Rapport& rapport, const TableauPlat& cumul);

// Title and vertices of the triangular graph.
struct EnTeteTriangle {
  std::string titre;
  std::array<std::string, 3> sommets;
};

// Line of a question in a .TRG: a blank, the name, the three percentages, the label or the name.
std::string LigneTriangle(const Question& question, const EffectifsTriangle& effectifs);

}  // namespace quelvar::sorts
