#include "modalities/regroupement/modifburt_options.h"

namespace quelvar::modalities {

namespace {

using O = OptionsModifBurt;

Description<O>::Poser PoserMarques(std::vector<std::string> O::*membre) {
  return [membre](O& options, const std::string& valeur) { options.*membre = NomsSepares(valeur); };
}

Description<O>::Ecrire EcrireMarques(std::vector<std::string> O::*membre) {
  return [membre](const O& options) {
    return (options.*membre).empty() ? std::vector<std::string>() : std::vector{NomsJoints(options.*membre)};
  };
}

}  // namespace

const Description<OptionsModifBurt>& DescriptionModifBurt() {
  static const Description<O> description =
      Description<O>("modifburt", "Regroupement de lignes et de colonnes d'un tableau, sous un nouveau générique"_w,
                     ModifierBurt)
          .Libre("colonnes", "NOM,NOM...", "colonnes à regrouper ; d'un tableau de Burt, aussi ses lignes"_w,
                 PoserMarques(&O::colonnes), EcrireMarques(&O::colonnes))
          .Libre("lignes", "NOM,NOM...", "lignes à regrouper"_w, PoserMarques(&O::lignes), EcrireMarques(&O::lignes))
          .Texte("nomcolonne", &O::nomColonne, "TEXTE", "intitulé du regroupement de colonnes, 25 caractères au plus"_w)
          .Montre("TextNouvCol")
          .Texte("nomligne", &O::nomLigne, "TEXTE", "intitulé du regroupement de lignes, 25 caractères au plus"_w)
          .Montre("TextNouvNom")
          .OuiNon("remplacer", &O::remplacer,
                  "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
  return description;
}

}  // namespace quelvar::modalities
