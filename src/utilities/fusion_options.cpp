#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::utilities {

const Description<OptionsFusion>& DescriptionFusionner() {
  using O = OptionsFusion;
  static const Description<O> description =
      Description<O>("fusionner", "Fusion de deux fichiers de colonnes fixes"_w, Verifier<O, ManqueFusion, Fusionner>)
          .Fichier("a", &O::a, "FICHIER", "premier fichier")
          .Fichier("b", &O::b, "FICHIER", "deuxième fichier"_w)
          .Fichier("c", &O::c, "FICHIER", "fichier résultant"_w)
          .Choix("type", &O::type,
                 {{"merge", TypeFusion::CoteACote},
                  {"append", TypeFusion::ALaSuite},
                  {"choixind", TypeFusion::Appareillement}},
                 "côte à côte, à la suite, ou appareillement par numéro individuel"_w)
          .Bouton("OptMerge", "merge")
          .Bouton("OptAppend", "append")
          .Bouton("Appareille", "choixind")
          .OuiNon("verification", &O::verifier, "côte à côte : compare les numéros des individus"_w)
          .Alias({"optverify"})
          .Bouton("OptVerifY", "oui")
          .Bouton("OptVerifN", "non")
          // Texts: a box proposes them as typed, and one that is no number is a 0, which the run refuses in its report.
          .Texte("positiona", &O::positionA, "N", "position du numéro dans le fichier A"_w)
          .Montre("TextPosA")
          .Texte("positionb", &O::positionB, "N", "position du numéro dans le fichier B"_w)
          .Montre("TextPosB")
          .Texte("largeur", &O::largeur, "N", "largeur commune des numéros"_w)
          .Montre("TextLarg")
          .OuiNon("pos", &O::pos, "les *.POS existent : le résultat en a un"_w)
          .Montre("CheckPOS");
  return description;
}

}  // namespace quelvar::utilities
