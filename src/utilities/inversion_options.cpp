#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::utilities {

const Description<OptionsInversion>& DescriptionInversion() {
  using O = OptionsInversion;
  static const Description<O> description =
      Description<O>("inversion", "Inversion des lignes et des colonnes d'un tableau, sous un nouveau générique"_w,
                     AvecGenerique<O, Inverser>)
          .OuiNon("trg", &O::trg, "le tableau va dans un fichier .TRG pour le graphique triangulaire"_w)
          .Montre("CheckTrg")
          .OuiNon("remplacer", &O::remplacer,
                  "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
  return description;
}

}  // namespace quelvar::utilities
