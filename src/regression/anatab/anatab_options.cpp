#include "core/options/image.h"
#include "regression/options.h"

namespace quelvar::regression {

const Description<OptionsAnatab>& DescriptionAnatab() {
  using O = OptionsAnatab;
  static const Description<O> description =
      Description<O>(
          "anatab",
          "Une modalité expliquée par celles de plusieurs questions : analyse tabulaire et logistique (.TRP)"_w,
          [](const Contexte& contexte, const O& options) { return Anatab(contexte, options); })
          .Libre("image", "FICHIER.svg", "image des effets, la référence à zéro"_w, PoserImage("image", &O::image),
                 EcrireImage(&O::image));
  return description;
}

}  // namespace quelvar::regression
