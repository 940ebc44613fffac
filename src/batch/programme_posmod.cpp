#include "batch/programmes.h"
#include "modalities/creation/posmod.h"

namespace quelvar::batch {

namespace {

// A column or a width: a whole number of up to four digits.
int Colonnes(const std::string& nom, const std::string& texte) {
  if (texte.empty() || texte.size() > 4 || texte.find_first_not_of("0123456789") != std::string::npos)
    throw UsageIncorrect(Joindre({"l'option ", nom, " attend un nombre entier (0..9999) et non \"", texte, "\""}));
  return static_cast<int>(ValeurDe(texte));
}

}  // namespace

Programme ProgrammePosmod() {
  using O = modalities::OptionsPosmod;
  return Description<O>("posmod",
                        "Création des modalités, du tableau de Burt et du codage logique (.MOD, .BRT, .CDG)"_w,
                        modalities::Posmod)
      .Choix<modalities::ModePosmod>(
          "mode", &O::mode,
          {{"afc", modalities::ModePosmod::Afc},
           {"regr", modalities::ModePosmod::Regr},
           {"modi", modalities::ModePosmod::Modi}},
          "analyse factorielle, régression (individus toujours pris) ou intitulés seulement"_w)
      .Noms("actives", &O::actives, "marques &ACT& du .POS", "questions actives, ou questions choisies"_w)
      .Alias({"listvar2", "questions"})
      .Noms("supplementaires", &O::supplementaires, "marques &SUP& du .POS", "questions supplémentaires"_w)
      .Alias({"listvar3"})
      .OuiNon("codeszero", &O::codesZero, "le code zéro de chaque question est une modalité"_w)
      .Libre("casecodz", "oui|non", "non", "la case du formulaire : pas de codes zéro"_w,
             [](O& options, const std::string& valeur) { options.codesZero = !LireOuiNon("casecodz", valeur); })
      .OuiNon("individus", &O::individus, "prend les individus : codage logique et lignes du tableau"_w)
      .Alias({"casecodlog", "codagelogique"})
      .Libre("nomindiv", "oui|non", "non", "nom de l'individu pris dans sa ligne de données"_w,
             [](O& options, const std::string& valeur) { options.noms.dansDonnees = LireOuiNon("nomindiv", valeur); })
      .Alias({"casenomindiv"})
      .Libre("debut", "0..9999", "", "première colonne de ce nom"_w,
             [](O& options, const std::string& valeur) { options.noms.debut = Colonnes("debut", valeur); })
      .Alias({"textboxdebut"})
      .Libre("largeur", "0..9999", "0", "largeur maximum de ce nom",
             [](O& options, const std::string& valeur) { options.noms.largeur = Colonnes("largeur", valeur); })
      .Alias({"textboxlargeur"})
      .Choix<bool>("limite", &O::verifierCodesMax, {{"50", true}, {"0", false}},
                   "arrêt après ce nombre de dépassements de code-max ; 0 : pas de vérification"_w)
      .Libre(
          "casecodmax", "oui|non", "non", "la case du formulaire : codes-max non vérifiés"_w,
          [](O& options, const std::string& valeur) { options.verifierCodesMax = !LireOuiNon("casecodmax", valeur); })
      .OuiNon("oublier", &O::oublierAnciennes, "oublie les marques et les intitulés d'un .MOD antérieur"_w)
      .Alias({"casesup"});
}

}  // namespace quelvar::batch
