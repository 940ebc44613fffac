#include "regression/options.h"

namespace quelvar::regression {

const Description<OptionsAnatab>& DescriptionAnatab() {
  using O = OptionsAnatab;
  static const Description<O> description =
      Description<O>(
          "anatab",
          "Une modalité expliquée par celles de plusieurs questions : analyse tabulaire et logistique (.TRP)"_w,
          [](const Contexte& contexte, const O& options) { return Anatab(contexte, options); })
          .Image("image", &O::image, "FICHIER.svg", "image des effets, la référence à zéro"_w);
  return description;
}

}  // namespace quelvar::regression
