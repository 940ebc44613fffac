// The flat count of an import as its report shows it: a table a question.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/dbase/tri.h"
#include "core/programme/rapport.h"
#include "core/resultats/tableau.h"

namespace quelvar::capture {

struct QuestionDuTri {
  std::string nom;
  std::size_t position = 1;  // first column in .DAT, from 1
  std::size_t largeur = 1;
  TriDeChamp tri;
};

// The codes that were met with their counts, then the total and its 100 percent.
TableauEdite TableauDuTri(const QuestionDuTri& question, std::int64_t individus);

// Prints the counts of all questions, their number, and the advice on questions of three columns.
void ImprimerTris(Rapport& rapport, const std::vector<QuestionDuTri>& questions, std::int64_t individus);

}  // namespace quelvar::capture
