#include "batch/programmes.h"
#include "capture/burt.h"
#include "capture/dbase/import.h"
#include "capture/dbase/tableau.h"

namespace quelvar::batch {

namespace {

// What the form checks before it starts the import.
Fin LancerBurt(const Contexte& contexte, const capture::OptionsImportBurt& options) {
  if (const std::string_view refus = capture::RefusDImporterBurt(options); !refus.empty())
    throw UsageIncorrect(std::string(refus));
  return capture::ImportBurt(contexte, options);
}

}  // namespace

Programme ProgrammeImportDbf() {
  return Description<capture::OptionsImportDbf>(
      "import-dbf", "Importation d'un fichier dBase .DBF, ou d'un .DAT seul (.DAT, .POS, .IMP)"_w, capture::ImportDbf);
}

Programme ProgrammeImportTableau() {
  return Description<capture::OptionsImportTableau>(
      "import-tableau", "Importation d'un tableau quelconque sauvé en dBase (.BRT, .MOD, .IMP)"_w,
      capture::ImportTableau);
}

Programme ProgrammeImportBurt() {
  using O = capture::OptionsImportBurt;
  using capture::NomsCourts;
  return Description<O>("import-burt", "Importation d'un tableau de Burt issu de SAS (.BRT, .MOD, .POS, .IMP)"_w,
                        LancerBurt)
      .Texte("fichier", &O::fichier, "FICHIER", "fichier texte du tableau : une ligne par modalité"_w)
      .Choix("noms", &O::noms, {{"auto", NomsCourts::Automatiques}, {"util", NomsCourts::Utilisateur}},
             "noms courts automatiques, ou les 4 premiers caractères de chaque ligne"_w);
}

}  // namespace quelvar::batch
