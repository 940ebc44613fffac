#include "factor/coupe/coupe_options.h"

namespace quelvar::factor {

const Description<OptionsCoupe>& DescriptionWardCoupe() {
  using O = OptionsCoupe;
  static const Description<O> description =
      Description<O>("ward-coupe", "Coupe l'arbre d'une classification : groupes de modalités, ou nouveau générique"_w,
                     WardCoupe)
          .Entier("niveau", &O::niveau, 0, kEtapesAuPlus, "nombre d'étapes de l'arbre"_w)
          .Montre("ValCAH")
          .OuiNon("intituleslongs", &O::intitulesLongs, "liste les modalités par leur intitulé long"_w)
          .Montre("CheckLong")
          .OuiNon("remplacer", &O::remplacer,
                  "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
  return description;
}

}  // namespace quelvar::factor
