// The options of the crosstabs as the command line and the form know them: one request for each launch, which becomes
// what a user does in the form ChoixVar.
#pragma once

#include <string>
#include <vector>

#include "core/options/description.h"
#include "crosstab/choixvar.h"

namespace quelvar::crosstab {

// What the form holds when its launch button is pressed; questions by name, "*" for all of them.
struct RequeteCroise {
  std::vector<std::string> lignes = {};
  std::vector<std::string> colonnes = {};
  std::vector<std::string> filtres = {};  // none: two dimensions
  bool nonReponses = true;
  ChoixEdition edition = ChoixEdition::Etendue;
  int points = kCaractereUsuel;  // of the wide edition
  bool ordrePem = false;
  bool inverserLignes = false;
  bool inverserColonnes = false;
  bool detailKhi2 = false;
  bool tableauIsole = false;  // for this launch: the next one begins without
  std::string graphique;      // file of the picture of a single table; empty: a series of tables

  bool operator==(const RequeteCroise&) const = default;
};

struct OptionsCroise {
  std::string fichierDonnees = {};  // other data file; empty for generic .DAT
  SortieDeTableaux sortie = SortieDeTableaux::Aucune;
  std::vector<RequeteCroise> lancements = {RequeteCroise()};

  bool operator==(const OptionsCroise&) const = default;
};

// Runs the launches on one survey. The report is shown once, when the last of them is over.
Fin ExecuterCroise(const Contexte& contexte, const OptionsCroise& options);

// The request that stands in the form; `graphique` is the file for the picture of a single table.
RequeteCroise RequeteDeLEtat(const EtatChoixVar& etat, const EnqueteCroisee& enquete, std::string_view graphique);

const Description<OptionsCroise>& DescriptionCroise();

}  // namespace quelvar::crosstab
