#include "text/gestion/options.h"

namespace quelvar::text {

namespace {

using Textes = std::vector<std::string>;
using Supl = Description<OptionsSuplMot>;
using ActionSupl = OptionsSuplMot::Action;

void DecrireStatut(Supl& description, std::string nom, ActionSupl::Genre genre, std::string_view valeurs,
                   std::string_view aide) {
  const auto poser = [genre](OptionsSuplMot& options, const std::string& valeur) {
    for (const std::string& element : NomsSepares(valeur)) options.actions.push_back({genre, element});
  };
  const auto ecrire = [genre](const OptionsSuplMot& options) {
    Textes noms;
    for (const ActionSupl& action : options.actions)
      if (action.genre == genre) noms.push_back(action.nom);
    return noms.empty() ? Textes() : Textes{NomsJoints(noms)};
  };
  description.Libre(std::move(nom), valeurs, aide, poser, ecrire).ADesNoms().Repetable();
}

void DecrireIntitule(Supl& description, const std::string& nom, ActionSupl::Genre genre, std::string_view valeurs,
                     std::string_view aide) {
  const auto poser = [nom, genre](OptionsSuplMot& options, const std::string& valeur) {
    auto [element, texte] = LireCouple(nom, valeur);
    options.actions.push_back({genre, std::move(element), std::move(texte)});
  };
  const auto ecrire = [genre](const OptionsSuplMot& options) {
    Textes textes;
    for (const ActionSupl& action : options.actions)
      if (action.genre == genre) textes.push_back(EcrireCouple(action.nom, action.intitule));
    return textes;
  };
  description.Libre(nom, valeurs, aide, poser, ecrire).ADesNoms().RepetableParNom();
}

Supl DecrireSuplMot() {
  using Genre = ActionSupl::Genre;
  Supl description("suplmot", "Gestion des colonnes et lignes d'un tableau (.BRT, .MOD)", SuplMot);
  DecrireStatut(description, "colonnes-sup", Genre::ColonneSup, "NOM,NOM...", "colonnes mises en supplémentaires"_w);
  description.Alias({"listcolsuppl"});
  DecrireStatut(description, "colonnes-actives", Genre::ColonneActive, "NOM,NOM...", "colonnes mises en actives");
  DecrireStatut(description, "lignes-sup", Genre::LigneSup, "MOT,MOT...", "lignes mises en supplémentaires"_w);
  description.Alias({"listlignsuppl"});
  DecrireStatut(description, "lignes-actives", Genre::LigneActive, "MOT,MOT...", "lignes mises en actives");
  DecrireIntitule(description, "intitule-colonne", Genre::IntituleColonne, "NOM=TEXTE",
                  "intitulé d'une colonne ; peut être répété"_w);
  description.Alias({"textmodcol"});
  DecrireIntitule(description, "intitule-ligne", Genre::IntituleLigne, "MOT=TEXTE",
                  "intitulé d'une ligne ; peut être répété"_w);
  description.Alias({"textmodlign"});
  return description;
}

}  // namespace

const Description<OptionsSuplMot>& DescriptionSuplMot() {
  static const Description<OptionsSuplMot> description = DecrireSuplMot();
  return description;
}

}  // namespace quelvar::text
