#include "regression/options.h"

namespace quelvar::regression {

const Description<OptionsVarint>& DescriptionVarint() {
  using O = OptionsVarint;
  static const Description<O> description =
      Description<O>("varint", "Profils de variables d'intérêt : les questions par la force de leur lien (.TRF)"_w,
                     [](const Contexte& contexte, const O& options) { return Varint(contexte, options); })
          .Noms("questions", &O::questions,
                "questions dont on veut le profil ; toutes, dans l'ordre du .POS, pour l'analyse factorielle"_w)
          .Alias({"listvar2"})
          .Choix("edition", &O::edition, {{"compacte", EditionVarint::Courte}, {"longue", EditionVarint::Longue}},
                 "avec les noms longs au niveau 2 seulement"_w)
          .Bouton("Opt1", "compacte")
          .Bouton("Opt2", "longue")
          .Image("image", &O::image, "FICHIER.svg", "image des profils, une barre par question"_w);
  return description;
}

}  // namespace quelvar::regression
