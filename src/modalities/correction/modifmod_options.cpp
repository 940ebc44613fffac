#include "modalities/correction/modifmod_options.h"

namespace quelvar::modalities {

namespace {

using O = OptionsModifMod;

// Names that are asked a status; what is given again is added.
Description<O>::Poser PoserNoms(std::vector<std::string> O::*membre) {
  return [membre](O& options, const std::string& valeur) {
    for (std::string& nom : NomsSepares(valeur)) (options.*membre).push_back(std::move(nom));
  };
}

Description<O>::Ecrire EcrireNoms(std::vector<std::string> O::*membre) {
  return [membre](const O& options) {
    return (options.*membre).empty() ? std::vector<std::string>() : std::vector{NomsJoints(options.*membre)};
  };
}

}  // namespace

const Description<OptionsModifMod>& DescriptionModifMod() {
  static const Description<O> description =
      Description<O>("modifmod", "Statut et intitulé des modalités d'un .MOD existant"_w, ModifierModalites)
          .Libre("supplementaires", "NOM,NOM...",
                 "modalités mises en supplémentaires ; le nom d'une question vaut pour toutes les siennes"_w,
                 PoserNoms(&O::supplementaires), EcrireNoms(&O::supplementaires))
          .ADesNoms()
          .Repetable()
          .Montre("ListSuppl")
          .Libre("actives", "NOM,NOM...", "modalités mises en actives, de même"_w, PoserNoms(&O::actives),
                 EcrireNoms(&O::actives))
          .ADesNoms()
          .Repetable()
          .Couples("intitule", &O::intitules, "NOM=TEXTE", "intitulé d'une modalité ; peut être répété"_w)
          .Montre("TextMod");
  return description;
}

}  // namespace quelvar::modalities
