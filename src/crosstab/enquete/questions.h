// The survey as the crosstabs keep it: questions, ceiling of the codes, labels of modalities, and every code in memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/modfile.h"
#include "crosstab/tableau/codes.h"

namespace quelvar::crosstab {

struct QuestionCroisee {
  std::string nom;      // 3 characters
  std::string libelle;  // name, position and code-max as they stand in the file: 10 characters
  std::string intitule;
  int position = 0;  // in .DAT
  int codeMax = 0;
  int plafond = 0;  // the code-max brought down to the ceiling, at least 0

  // Long name, else short name.
  const std::string& NomLong() const { return intitule.empty() ? nom : intitule; }
};

struct EnqueteCroisee {
  std::vector<QuestionCroisee> questions;
  std::int64_t individus = 0;         // N
  std::int64_t avantPonderation = 0;  // W, the size that the counts are brought to; 0 without weighting
  IntitulesModalites intitules;
  MatriceCodes codes;

  bool Pondere() const { return avantPonderation > 0; }
};

// Question name and code text, by code: "SEX1", "AGEB", "AGE36". Raises kIndiceHorsSelection for a code beyond 99.
std::vector<std::string> IntitulesCourts(const QuestionCroisee& question);

// Four characters by code, which identify the modality in the .MOD: "SEX1", "AGEB", "AG36". Raises kIndiceHorsSelection
// as above.
std::vector<std::string> NomsDeModalites(const QuestionCroisee& question);

// The same, replaced by the text of the .MOD laid out for the two lines of a framed cell where there is one.
std::vector<std::string> IntitulesEtendus(const EnqueteCroisee& enquete, const QuestionCroisee& question);

// A label of the .MOD that may be another question's: RE36 is the code 36 of REG and of REV, and the code 6 of RE3.
struct IntitulePartage {
  std::string modalite;
  std::string autre;  // question
};
// The first one of a question.
std::optional<IntitulePartage> ChercherIntitulePartage(const EnqueteCroisee& enquete, const QuestionCroisee& question);

}  // namespace quelvar::crosstab
