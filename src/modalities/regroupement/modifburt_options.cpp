#include "modalities/regroupement/modifburt_options.h"

namespace quelvar::modalities {

const Description<OptionsModifBurt>& DescriptionModifBurt() {
  using O = OptionsModifBurt;
  static const Description<O> description =
      Description<O>("modifburt", "Regroupement de lignes et de colonnes d'un tableau, sous un nouveau générique"_w,
                     ModifierBurt)
          .Noms("colonnes", &O::colonnes, "colonnes à regrouper ; d'un tableau de Burt, aussi ses lignes"_w)
          .Noms("lignes", &O::lignes, "lignes à regrouper"_w)
          .Texte("nomcolonne", &O::nomColonne, "TEXTE", "intitulé du regroupement de colonnes, 25 caractères au plus"_w)
          .Montre("TextNouvCol")
          .Texte("nomligne", &O::nomLigne, "TEXTE", "intitulé du regroupement de lignes, 25 caractères au plus"_w)
          .Montre("TextNouvNom")
          .OuiNon("remplacer", &O::remplacer,
                  "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
  return description;
}

}  // namespace quelvar::modalities
