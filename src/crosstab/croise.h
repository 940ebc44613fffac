// Crosstabs: loads the survey once, then prints in the report .TCR any number of two- and three-way tables at each
// launch; on request saves one table as .MOD and .BRT and appends rows to the .TRG of the triangular graph.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/programme/programme.h"
#include "core/resultats/tableau.h"
#include "crosstab/edition/editions.h"
#include "crosstab/enquete/questions.h"
#include "crosstab/graphe/retenu.h"
#include "crosstab/tableau/tableau.h"

namespace quelvar::crosstab {

// What a launch computes: every crossing of a row question by a column question, questions by index. In three
// dimensions each of them for every modality of each filter question.
struct DemandeCroise {
  bool troisDimensions = false;
  std::vector<std::size_t> filtres;
  std::vector<std::size_t> lignes;
  std::vector<std::size_t> colonnes;
  OrdreDemande ordre;
  bool nonReponses = true;  // code 0 makes a row and a column
  OptionsEdition edition;
  bool tableauIsole = false;  // save the first table as .MOD and .BRT
  bool retenir = false;       // keep the last table for its picture
  bool tableaux = false;      // keep all of them as tables of data
};

struct ResultatLancement {
  std::vector<TableauEdite> tableaux;  // when they are wanted
  bool isoleEcrit = false;
  std::optional<TableauRetenu> retenu;
};

// Loads the survey and starts the report anew; `fichierDonnees` stands for the .DAT of the generic unless it is empty.
// Nothing when the run stopped; the report, which is shown only then, tells why.
std::optional<EnqueteCroisee> PreparerCroise(const Contexte& contexte, std::string_view fichierDonnees);

// Computes the tables asked for and prints them behind what the report holds. Nothing when an error ended the run: a
// question with codes beyond 99 is kIndiceHorsSelection.
std::optional<ResultatLancement> LancerCroise(const Contexte& contexte, const EnqueteCroisee& enquete,
                                              const DemandeCroise& demande);

}  // namespace quelvar::crosstab
