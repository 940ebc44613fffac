#include "sorts/recodage/recodage_options.h"

namespace quelvar::sorts {

namespace {

using O = OptionsRecodage;

Description<O> Decrire() {
  return Description<O>("recodage",
                        "Recodage, pondération, filtre et VIT sous un nouveau générique (.DAT, .POS, .REC)"_w, Recodage)
      .OuiNon("seules", &O::seules, "ne garder que les questions recodées ou sélectionnées"_w)
      .Montre("CaseTriang")
      .Alias({"garder"})
      .OuiNon("enfin", &O::enFin,
              "ne pas recoder sur place mais mettre les recodées à la fin ; sans effet avec seules=oui"_w)
      .Montre("CaseRepMult")
      .Alias({"fin"})
      .OuiNon("toutes", &O::toutesSelectionnees, "une question sans règle compte comme sélectionnée par S"_w)
      .MontreLeContraire("CaseVerif")
      .Alias("selectionnees", {{"oui", "non"}, {"non", "oui"}})
      .OuiNon("remplacer", &O::remplacer,
              "remplace sans demander les fichiers du nouveau générique ; non : un nom libre est proposé"_w)
      .Fichier("donnees", &O::fichierDonnees, "FICHIER", "autre fichier de données que le .DAT du générique"_w)
      .Montre("CaseDat")
      .Alias({"dat"});
}

}  // namespace

const Description<OptionsRecodage>& DescriptionRecodage() {
  static const Description<OptionsRecodage> description = Decrire();
  return description;
}

}  // namespace quelvar::sorts
