#include "regression/options.h"

namespace quelvar::regression {

const Description<OptionsModifModR>& DescriptionModifModR() {
  using O = OptionsModifModR;
  static const Description<O> description =
      Description<O>("modifmodr", "Codage d'une régression dans le .MOD : modalité à expliquer, références"_w,
                     ModifModR)
          .Noms("expliquer", &O::expliquer, "modalité à expliquer ; les autres de sa question sont mises à blanc"_w)
          .Noms("reference", &O::references, "modalités de référence ; les autres de leur question sont explicatives"_w)
          .Couples("intitule", &O::intitules, "NOM=TEXTE", "intitulé d'une modalité ; peut être répété"_w);
  return description;
}

}  // namespace quelvar::regression
