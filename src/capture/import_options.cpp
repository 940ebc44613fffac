#include "capture/import_options.h"

namespace quelvar::capture {

namespace {

// What the form checks before it starts the import.
Fin LancerBurt(const Contexte& contexte, const OptionsImportBurt& options) {
  if (const std::string_view refus = RefusDImporterBurt(options); !refus.empty())
    throw UsageIncorrect(std::string(refus));
  return ImportBurt(contexte, options);
}

}  // namespace

const Description<OptionsImportDbf>& DescriptionImportDbf() {
  static const Description<OptionsImportDbf> description(
      "import-dbf", "Importation d'un fichier dBase .DBF, ou d'un .DAT seul (.DAT, .POS, .IMP)"_w, ImportDbf);
  return description;
}

const Description<OptionsImportTableau>& DescriptionImportTableau() {
  static const Description<OptionsImportTableau> description(
      "import-tableau", "Importation d'un tableau quelconque sauvé en dBase (.BRT, .MOD, .IMP)"_w, ImportTableau);
  return description;
}

const Description<OptionsImportBurt>& DescriptionImportBurt() {
  using O = OptionsImportBurt;
  static const Description<O> description =
      Description<O>("import-burt", "Importation d'un tableau de Burt issu de SAS (.BRT, .MOD, .POS, .IMP)"_w,
                     LancerBurt)
          .Fichier("fichier", &O::fichier, "FICHIER", "fichier texte du tableau : une ligne par modalité"_w)
          .Montre("TextFichier")
          .Choix("noms", &O::noms, {{"auto", NomsCourts::Automatiques}, {"util", NomsCourts::Utilisateur}},
                 "noms courts automatiques, ou les 4 premiers caractères de chaque ligne"_w)
          .Bouton("OptNum", "auto")
          .Bouton("OptUtil", "util");
  return description;
}

const Description<OptionsImportCsv>& DescriptionImportCsv() {
  using O = OptionsImportCsv;
  static const Description<O> description =
      Description<O>("import-csv", "Importation d'un tableur sauvé en .CSV ou .TXT (.DAT, .POS, .IMP)"_w, ImportCsv)
          .OuiNon("sansintitules", &O::sansIntitules,
                  "fichier sans première ligne donnant les intitulés ; il ne donne pas de .POS"_w)
          .Montre("CheckTrg");
  return description;
}

}  // namespace quelvar::capture
