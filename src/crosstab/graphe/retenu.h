// A printed table with its words, kept for its picture.
#pragma once

#include <string>
#include <vector>

#include "crosstab/enquete/questions.h"
#include "crosstab/tableau/tableau.h"

namespace quelvar::crosstab {

struct TableauRetenu {
  TableauCroise tableau;
  QuestionCroisee ligne;
  QuestionCroisee colonne;
  std::vector<std::string> intitulesLignes;  // by code
  std::vector<std::string> intitulesColonnes;
  bool ordrePem = false;  // rows and columns stand in the order of the first axis
};

}  // namespace quelvar::crosstab
