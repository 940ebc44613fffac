#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::utilities {

const Description<OptionsGendat>& DescriptionGendat() {
  static const Description<OptionsGendat> description(
      "gendat", "Création d'un fichier de données (.DAT, .POS) à partir d'un tableau"_w,
      AvecGenerique<OptionsGendat, Gendat>);
  return description;
}

}  // namespace quelvar::utilities
