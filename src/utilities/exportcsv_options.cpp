#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::utilities {

const Description<OptionsExportCsv>& DescriptionExportCsv() {
  using O = OptionsExportCsv;
  static const Description<O> description =
      Description<O>("export-csv", "Données et intitulés pour un tableur (.csv)"_w, AvecGenerique<O, ExporterCsv>)
          .Choix("separateur", &O::tabulation, {{"pointvirgule", false}, {";", false}, {"tabulation", true}},
                 "sépare les cellules"_w)
          .Bouton("OptPointVirgule", "pointvirgule")
          .Bouton("OptTab", "tabulation")
          .Choix("codage", &O::utf8, {{"windows-1252", false}, {"utf-8", true}}, "codage des caractères"_w)
          .Bouton("OptWindows", "windows-1252")
          .Bouton("OptUtf8", "utf-8")
          .Choix("contenu", &O::codes, {{"intitules", false}, {"codes", true}},
                 "intitulés des modalités, ou codes sous des titres qui commencent par le nom de la question"_w)
          .Bouton("OptIntitules", "intitules")
          .Bouton("OptCodes", "codes")
          .OuiNon("choix", &O::choix, "écrit aussi le .IMC avec lequel une importation retrouve noms et codes"_w)
          .Montre("CheckChoix");
  return description;
}

}  // namespace quelvar::utilities
