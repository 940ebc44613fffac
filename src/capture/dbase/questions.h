// The questions that an import makes of the fields of a dBase file or of the columns of a data file, and their names.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "capture/dbase/dbf.h"
#include "core/enquete/datfile.h"

namespace quelvar::capture {

struct QuestionImportee {
  std::string nom;           // three characters
  std::size_t position = 1;  // first column in .DAT, from 1
  std::size_t largeur = 1;   // 1 to 3 columns
  std::string champ;         // name of the field that it is, empty for a column of its own

  Champ EnChamp() const { return {static_cast<std::uint32_t>(position - 1), static_cast<std::uint32_t>(largeur)}; }
};

// What lies behind kDernierePosition does not become a question.
// A field of one to three columns is a question of its name, a wider one as many questions as it has columns.
std::vector<QuestionImportee> QuestionsDesChamps(const std::vector<ChampDbf>& champs);
// One question for each of the first `longueur` columns.
std::vector<QuestionImportee> QuestionsDesPositions(std::size_t longueur);

// The name of a column: its number on three digits; from 1000 on letters stand before the last digits ("A00" is 1000,
// "Z99" 3599, "AA0" 3600).
std::string NomDePosition(std::size_t position);

// Gives its position as a name to every question whose own name is blank, marks the end of a list of questions, or is
// that of another one. Returns the fields that have lost their name so, by index.
std::vector<std::size_t> NommerQuestions(std::vector<QuestionImportee>& questions);

}  // namespace quelvar::capture
