#include "factor/profil/profilmod_options.h"

namespace quelvar::factor {

const Description<OptionsProfil>& DescriptionProfilMod() {
  using O = OptionsProfil;
  static const Description<O> description =
      Description<O>("profilmod", "Profil d'une ou de plusieurs modalités : attirances et répulsions (.PR2)"_w,
                     ProfilMod)
          .Noms("modalites", &O::modalites,
                "modalités dont on veut le profil ; elles sont gardées sur la 2e ligne du .MOD"_w)
          .Montre("ChoixMod")
          .Defaut("celles de MOD= sur la 2e ligne du .MOD")
          .OuiNon("detail", &O::detail, "les colonnes du Khideux")
          .Montre("Detail")
          .OuiNon("nontri", &O::nonTri, "garde l'ordre du fichier")
          .Montre("NonTri")
          .Couples("intitule", &O::intitules, "NOM=TEXTE", "nouvel intitulé d'une modalité ; peut être répété"_w)
          .Image("fichier", &O::fichier, "NOM.svg", "image des profils, en SVG");
  return description;
}

}  // namespace quelvar::factor
