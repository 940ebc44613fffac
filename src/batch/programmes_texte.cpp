#include "batch/programmes.h"
#include "text/preparation/preptext.h"

namespace quelvar::batch {

namespace {

Fin LancerPrepText(const Contexte& contexte, const text::OptionsPrepText& options) {
  std::string nouveau;
  return text::PrepText(contexte, options, nouveau);
}

}  // namespace

Programme ProgrammePrepText() {
  using O = text::OptionsPrepText;
  return Description<O>("preptext", "Préparation d'un fichier texte sous un nouveau générique (.txt, .prt)"_w,
                        LancerPrepText)
      .OuiNon("accents", &O::accents, "suppression des accents")
      .Alias({"chkaccents"})
      .OuiNon("ponctuation", &O::ponctuation, "suppression des signes de ponctuation (et tabulation)")
      .Alias({"chkponct"})
      .OuiNon("majuscules", &O::majusculesEnMin, "passage des majuscules en minuscules")
      .Alias({"chkmaj"})
      .OuiNon("minuscules", &O::minusculesEnMaj, "passage des minuscules en majuscules")
      .Alias({"chkmin"})
      .OuiNon("finsdeligne", &O::finsDeLigne, "suppression des fins de ligne sauf si &&&")
      .Alias({"chkopt"})
      .OuiNon("dat", &O::fichierDat, "prend le fichier *.DAT")
      .Alias({"cmdfichdat"})
      .Texte("fichier", &O::fichier, "FICHIER", "autre fichier de texte")
      .Alias({"cmdficha"});
}

}  // namespace quelvar::batch
