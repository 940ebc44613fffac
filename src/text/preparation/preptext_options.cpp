#include "text/preparation/preptext_options.h"

namespace quelvar::text {

namespace {

using O = OptionsPrepText;

Fin LancerPrepText(const Contexte& contexte, const O& options) {
  std::string nouveau;
  return PrepText(contexte, options, nouveau);
}

Description<O> Decrire() {
  return Description<O>("preptext", "Préparation d'un fichier texte sous un nouveau générique (.txt, .prt)"_w,
                        LancerPrepText)
      .OuiNon("accents", &O::accents, "suppression des accents")
      .Montre("ChkAccents")
      .OuiNon("ponctuation", &O::ponctuation, "suppression des signes de ponctuation (et tabulation)")
      .Montre("ChKPonct")
      .OuiNon("majuscules", &O::majusculesEnMin, "passage des majuscules en minuscules")
      .Montre("ChkMaj")
      .OuiNon("minuscules", &O::minusculesEnMaj, "passage des minuscules en majuscules")
      .Montre("ChkMin")
      .OuiNon("finsdeligne", &O::finsDeLigne, "suppression des fins de ligne sauf si &&&")
      .Montre("ChkOpt")
      .OuiNon("dat", &O::fichierDat, "prend le fichier *.DAT")
      .Alias({"cmdfichdat"})
      .Fichier("fichier", &O::fichier, "FICHIER", "autre fichier de texte")
      .Alias({"cmdficha"})
      .OuiNon("remplacer", &O::remplacer,
              "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
}

}  // namespace

const Description<OptionsPrepText>& DescriptionPrepText() {
  static const Description<OptionsPrepText> description = Decrire();
  return description;
}

}  // namespace quelvar::text
