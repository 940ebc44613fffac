// Crosstabs: loads the survey once, then prints in the report .TCR any number of two- and three-way tables each time it
// is asked to; on request saves one table as .MOD and .BRT and appends rows to the .TRG of the triangular graph.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/programme.h"
#include "crosstab/edition.h"
#include "crosstab/enquete.h"
#include "crosstab/tableau.h"

namespace quelvar {

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
};

// A printed table with its words, kept for its picture.
struct TableauRetenu {
  TableauCroise tableau;
  QuestionCroisee ligne;
  QuestionCroisee colonne;
  std::vector<std::string> intitulesLignes;  // by code
  std::vector<std::string> intitulesColonnes;
};

struct ResultatLancement {
  bool isoleEcrit = false;
  std::optional<TableauRetenu> retenu;
};

// A run between its preparation and its end.
class SessionCroise {
 public:
  SessionCroise(const Contexte& contexte, Rapport& rapport, EnqueteCroisee enquete)
      : contexte_(contexte), rapport_(rapport), enquete_(std::move(enquete)) {}

  const Contexte& Cadre() const { return contexte_; }
  const EnqueteCroisee& Enquete() const { return enquete_; }
  Rapport& CompteRendu() { return rapport_; }

  // Computes and prints the tables asked for; the report file holds them when it returns. Raises 9 for a question with
  // codes beyond 99, and the numbers of the writers.
  ResultatLancement Lancer(const DemandeCroise& demande);

 private:
  const Contexte& contexte_;
  Rapport& rapport_;
  EnqueteCroisee enquete_;
};

struct OptionsCroise {
  std::string fichierDonnees;  // other data file; empty for generic .DAT
  // Shows the request form, or stands for it: launches as often as it likes.
  std::function<void(SessionCroise&)> demander;
};

// Prepares the survey, hands it to `demander` and ends the run when that returns.
Fin Croise(const Contexte& contexte, const OptionsCroise& options);

// The error texts of the program, which its form needs to show the report between two launches.
const LibellesErreur& LibellesCroise();

// The two files of an isolated table, emptied for the launch that fills them. Raises 61, 70 or 75.
void ViderTableauIsole(const Contexte& contexte);

}  // namespace quelvar
