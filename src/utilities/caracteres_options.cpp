#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::utilities {

const Description<OptionsCaracteres>& DescriptionCaracteres() {
  using O = OptionsCaracteres;
  static const Description<O> description =
      Description<O>("caracteres", "Affichage d'un fichier caractère par caractère, avec les codes décimaux"_w,
                     Verifier<O, ManqueCaracteres, ListerCaracteres>)
          .Fichier("a", &O::a, "FICHIER", "fichier à regarder"_w);
  return description;
}

}  // namespace quelvar::utilities
