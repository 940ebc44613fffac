#include "text/tableau/tabmot_options.h"

namespace quelvar::text {

namespace {

using O = OptionsTabMot;

Description<O> Decrire() {
  return Description<O>("tabmot", "Création du tableau lexical des questions (.BRT, .MOD, .PRT)"_w, TabMot)
      .Noms("questions", &O::actives, "questions actives")
      .Defaut("marques &ACT& du .POS")
      .Montre("ListVar2")
      .Alias({"actives"})
      .Entier("frequence", &O::frequenceMin, 0, kFrequenceLaPlusHaute, "fréquence minimum d'un mot ; 0 : 4"_w)
      .Montre("TBFreq")
      .OuiNon("codeszero", &O::codesZero, "le code zéro de chaque question est une modalité"_w)
      .Montre("OpCodZY")
      .MontreLeContraire("OpCodZN")
      .Entier("limite", &O::limite, 0, kFrequenceLaPlusHaute, "dépassements de code-max admis ; 0 : pas d'arrêt"_w)
      .OuiNon("themes", &O::themes, "mots qui sont des thèmes : tableau de 0 et de 1"_w)
      .Defaut("selon les mots")
      .Montre("ChkThemes");
}

}  // namespace

const Description<OptionsTabMot>& DescriptionTabMot() {
  static const Description<OptionsTabMot> description = Decrire();
  return description;
}

}  // namespace quelvar::text
