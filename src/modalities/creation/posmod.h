// Posmod: turns chosen questions of a survey into modalities, their Burt table and, on demand, the logical coding of
// the individuals.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/programme/programme.h"
#include "modalities/creation/choix.h"

namespace quelvar::modalities {

struct OptionsPosmod {
  ModePosmod mode = ModePosmod::Afc;
  // Names of the chosen questions; the marks of the .POS stand for them when neither list is given.
  std::optional<std::vector<std::string>> actives = {};
  std::optional<std::vector<std::string>> supplementaires = {};
  bool codesZero = true;          // the code 0 of each question is a modality
  bool individus = false;         // logical coding, and rows of individuals behind the Burt table
  NomsDIndividus noms = {};       // of the individuals
  bool verifierCodesMax = true;   // stop after more than 50 values above their code-max
  bool oublierAnciennes = false;  // marks and labels of an earlier .MOD are not used

  bool operator==(const OptionsPosmod&) const = default;
};

// Writes .PRT, .BRT and .MOD (.CDG with individuals) and the marks of the choice in .POS. In the mode Modi it names the
// modalities without reading the data. A run that stops leaves every file but .PRT as it was.
Fin Posmod(const Contexte& contexte, const OptionsPosmod& options);

// What the form starts from.
struct ChoixPrepare {
  FichierPos pos;
  ChoixQuestions choix;    // the one that the marks of the .POS keep
  bool ancienMod = false;  // there is an earlier .MOD
};
// The preparation alone. When it stops, its report is shown and there is nothing to start from.
std::optional<ChoixPrepare> PrepPosmod(const Contexte& contexte, ModePosmod mode);

// The run that leaving the form ends: the preparation alone, which the report tells.
Fin AbandonnerPosmod(const Contexte& contexte);

}  // namespace quelvar::modalities
