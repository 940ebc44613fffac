// The actions of the forms that edit modalities and names of questions.
#include "batch/programmes.h"
#include "modalities/edition/modifmod.h"
#include "modalities/edition/nomemod.h"
#include "modalities/edition/nomquest.h"

namespace quelvar::batch {

namespace {

Description<modalities::OptionsModifMod>::Poser PoserStatuts(modalities::OptionsModifMod::Action::Genre genre) {
  return [genre](modalities::OptionsModifMod& options, const std::string& valeur) {
    for (const std::string& nom : NomsSepares(valeur)) options.actions.push_back({genre, nom});
  };
}

}  // namespace

Programme ProgrammeModifMod() {
  using Genre = modalities::OptionsModifMod::Action::Genre;
  return Description<modalities::OptionsModifMod>("modifmod", "Statut et intitulé des modalités d'un .MOD existant"_w,
                                                  modalities::ModifierModalites)
      .Libre("supplementaires", "NOM,NOM...", "",
             "modalités mises en supplémentaires ; le nom d'une question vaut pour toutes les siennes"_w,
             PoserStatuts(Genre::Supplementaire))
      .Libre("actives", "NOM,NOM...", "", "modalités mises en actives, de même"_w, PoserStatuts(Genre::Active))
      .Libre("intitule", "NOM=TEXTE", "", "intitulé d'une modalité ; peut être répété"_w,
             [](modalities::OptionsModifMod& options, const std::string& valeur) {
               auto [nom, texte] = NomEtTexte("intitule", valeur);
               options.actions.push_back({Genre::Intitule, std::move(nom), std::move(texte)});
             });
}

Programme ProgrammeNomeMod() {
  return Description<modalities::OptionsNomeMod>(
             "nomemod", "Création de modalités et intitulés, sans lecture des données (.MOD)"_w,
             modalities::NommerModalites)
      .Noms("questions", &modalities::OptionsNomeMod::questions, "aucune : toutes les modalités du .MOD"_w,
            "questions dont on crée les modalités"_w)
      .Alias({"listvar2"})
      .OuiNon("codeszero", &modalities::OptionsNomeMod::codesZero, "le code zéro de chaque question est une modalité"_w)
      .Libre("casecodz", "oui|non", "non", "la case du formulaire : pas de codes zéro"_w,
             [](modalities::OptionsNomeMod& options, const std::string& valeur) {
               options.codesZero = !LireOuiNon("casecodz", valeur);
             })
      .Libre("intitule", "NOM=TEXTE", "", "intitulé d'une modalité ; peut être répété"_w,
             [](modalities::OptionsNomeMod& options, const std::string& valeur) {
               options.intitules.push_back(NomEtTexte("intitule", valeur));
             });
}

Programme ProgrammeNomQuest() {
  return Description<modalities::OptionsNomQuest>("nomquest", "Intitulés des questions, entre signes $ dans le .POS"_w,
                                                  modalities::NommerQuestions)
      .Libre("intitule", "NOM=TEXTE", "", "intitulé d'une question, 30 caractères au plus ; peut être répété"_w,
             [](modalities::OptionsNomQuest& options, const std::string& valeur) {
               options.intitules.push_back(NomEtTexte("intitule", valeur));
             });
}

}  // namespace quelvar::batch
