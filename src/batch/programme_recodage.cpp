#include "batch/programmes.h"
#include "sorts/recodage/recodage.h"

namespace quelvar::batch {

Programme ProgrammeRecodage() {
  return Description<sorts::OptionsRecodage>(
             "recodage", "Recodage, pondération, filtre et VIT sous un nouveau générique (.DAT, .POS, .REC)"_w,
             sorts::Recodage)
      .OuiNon("seules", &sorts::OptionsRecodage::seules, "ne garder que les questions recodées ou sélectionnées"_w)
      .Alias({"casetriang", "garder"})
      .OuiNon("enfin", &sorts::OptionsRecodage::enFin,
              "ne pas recoder sur place mais mettre les recodées à la fin ; sans effet avec seules=oui"_w)
      .Alias({"caserepmult", "fin"})
      .OuiNon("toutes", &sorts::OptionsRecodage::toutesSelectionnees,
              "une question sans règle compte comme sélectionnée par S"_w)
      .Libre("selectionnees", "oui|non", "non", "le contraire de toutes, comme la case du formulaire"_w,
             [](sorts::OptionsRecodage& options, const std::string& valeur) {
               options.toutesSelectionnees = !LireOuiNon("selectionnees", valeur);
             })
      .Alias({"caseverif"})
      .Texte("donnees", &sorts::OptionsRecodage::fichierDonnees, "FICHIER",
             "autre fichier de données que le .DAT du générique"_w)
      .Alias({"casedat", "dat"});
}

}  // namespace quelvar::batch
