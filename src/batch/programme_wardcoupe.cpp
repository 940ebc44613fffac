#include "batch/programmes.h"
#include "factor/classement/coupe.h"

namespace quelvar::batch {

Programme ProgrammeWardCoupe() {
  using O = factor::OptionsCoupe;
  return Description<O>("ward-coupe",
                        "Coupe l'arbre d'une classification : groupes de modalités, ou nouveau générique"_w,
                        factor::WardCoupe)
      .Entier("niveau", &O::niveau, 0, 999999, "nombre d'étapes de l'arbre"_w)
      .OuiNon("intituleslongs", &O::intitulesLongs, "liste les modalités par leur intitulé long"_w)
      .Alias({"checklong"});
}

}  // namespace quelvar::batch
