// Posmod: turns chosen questions of a survey into modalities, their Burt table and, on demand, the logical coding of
// the individuals.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/programme/programme.h"
#include "modalities/liste/choix.h"

namespace quelvar::modalities {

struct OptionsPosmod {
  ModePosmod mode = ModePosmod::Afc;
  // Names of the chosen questions; the marks of the .POS stand for them when neither list is given.
  std::optional<std::vector<std::string>> actives = {};
  std::optional<std::vector<std::string>> supplementaires = {};
  bool codesZero = true;          // the code 0 of each question is a modality
  bool individus = false;         // logical coding, and rows of individuals behind the Burt table
  NomsDIndividus noms = {};       // of the individuals
  bool verifierCodesMax = true;   // stop after kDepassementsAuPlus values above their code-max
  bool oublierAnciennes = false;  // marks and labels of an earlier .MOD are not used

  bool operator==(const OptionsPosmod&) const = default;
};

// Writes .PRT, .BRT and .MOD (.CDG with individuals) and the marks of the choice in .POS. In the mode Modi it names the
// modalities without reading the data. A run that stops leaves every file but .PRT as it was.
Fin Posmod(const Contexte& contexte, const OptionsPosmod& options);

// The creations of NomeMod, which go on under one report: its heading (banner, names of the files, individuals, the
// last when the .POS can be read), and one creation without the data behind it. The .DAT and the .POS are required
// before the heading. What stops raises kArretAnnonce once the report has told why, and the failures of the readers and
// of JeuDeFichiers.
void ExigerFichiersDesModalites(const Contexte& contexte, Rapport& rapport);
void ImprimerEnTeteDesModalites(const Contexte& contexte, Rapport& rapport);
void CreerSansDonnees(const Contexte& contexte, const std::vector<std::string>& questions, bool codesZero,
                      Rapport& rapport);
// Which programs are to be run again since the table of the directory is not that of the modalities any more; empty
// when they go together or there is no table.
std::string PhraseDeTableDepassee(const Contexte& contexte);

// What the form starts from.
struct ChoixPrepare {
  FichierPos pos;
  ChoixQuestions choix;    // the one that the marks of the .POS keep
  bool ancienMod = false;  // there is an earlier .MOD
};
// The preparation alone. When it stops, its report is shown and there is nothing to start from.
std::optional<ChoixPrepare> PrepPosmod(const Contexte& contexte, ModePosmod mode);

}  // namespace quelvar::modalities
