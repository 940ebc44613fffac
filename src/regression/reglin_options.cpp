#include "regression/options.h"
#include "regression/reglin/reglin.h"

namespace quelvar::regression {

const Description<SansOption>& DescriptionReglin() {
  static const Description<SansOption> description(
      "reglin", "Régression linéaire d'une variable numérique sur d'autres (.REG)"_w,
      [](const Contexte& contexte, const SansOption&) { return Reglin(contexte); });
  return description;
}

}  // namespace quelvar::regression
