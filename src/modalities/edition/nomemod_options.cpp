#include "modalities/edition/nomemod_options.h"

namespace quelvar::modalities {

const Description<OptionsNomeMod>& DescriptionNomeMod() {
  using O = OptionsNomeMod;
  static const Description<O> description =
      Description<O>("nomemod", "Création de modalités et intitulés, sans lecture des données (.MOD)"_w,
                     NommerModalites)
          .Noms("questions", &O::questions, "questions dont on crée les modalités"_w)
          .Defaut("aucune : toutes les modalités du .MOD"_w)
          .Montre("ListVar2")
          .OuiNon("codeszero", &O::codesZero, "le code zéro de chaque question est une modalité"_w)
          .MontreLeContraire("CaseCodZ")
          .Couples("intitule", &O::intitules, "NOM=TEXTE", "intitulé d'une modalité ; peut être répété"_w);
  return description;
}

}  // namespace quelvar::modalities
