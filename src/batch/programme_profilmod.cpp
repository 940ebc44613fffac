#include "batch/programmes.h"
#include "factor/profil/profilmod.h"

namespace quelvar::batch {

Programme ProgrammeProfilMod() {
  using O = factor::OptionsProfil;
  return Description<O>("profilmod", "Profil d'une ou de plusieurs modalités : attirances et répulsions (.PR2)"_w,
                        factor::ProfilMod)
      .Noms("modalites", &O::modalites, "celles de MOD= sur la 2e ligne du .MOD",
            "modalités dont on veut le profil ; elles sont gardées sur la 2e ligne du .MOD"_w)
      .Alias({"choixmod"})
      .OuiNon("detail", &O::detail, "les colonnes du Khideux")
      .OuiNon("nontri", &O::nonTri, "garde l'ordre du fichier")
      .Libre("intitule", "NOM=TEXTE", "", "nouvel intitulé d'une modalité ; peut être répété"_w,
             [](O& options, const std::string& valeur) { options.intitules.push_back(NomEtTexte("intitule", valeur)); })
      .Texte("fichier", &O::fichier, "NOM.svg", "image du premier profil, en SVG");
}

}  // namespace quelvar::batch
