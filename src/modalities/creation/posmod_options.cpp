#include "modalities/creation/posmod_options.h"

namespace quelvar::modalities {

namespace {

using O = OptionsPosmod;

constexpr int kColonneLaPlusHaute = 9999;

Description<O> Decrire() {
  const std::string limite = Nombre(kDepassementsAuPlus);
  return Description<O>("posmod",
                        "Création des modalités, du tableau de Burt et du codage logique (.MOD, .BRT, .CDG)"_w, Posmod)
      .Choix("mode", &O::mode, {{"afc", ModePosmod::Afc}, {"regr", ModePosmod::Regr}, {"modi", ModePosmod::Modi}},
             "analyse factorielle, régression (individus toujours pris) ou intitulés seulement"_w)
      .Noms("actives", &O::actives, "questions actives, ou questions choisies"_w)
      .Defaut("marques &ACT& du .POS")
      .Montre("ListVar2")
      .Alias({"questions"})
      .Noms("supplementaires", &O::supplementaires, "questions supplémentaires"_w)
      .Defaut("marques &SUP& du .POS")
      .Montre("ListVar3")
      .OuiNon("codeszero", &O::codesZero, "le code zéro de chaque question est une modalité"_w)
      .MontreLeContraire("CaseCodZ")
      .OuiNon("individus", &O::individus, "prend les individus : codage logique et lignes du tableau"_w)
      .Montre("CaseCodLog")
      .Alias({"codagelogique"})
      .OuiNon(
          "nomindiv", [](auto& o) -> auto& { return o.noms.dansDonnees; },
          "nom de l'individu pris dans sa ligne de données"_w)
      .Montre("CaseNomIndiv")
      .Entier(
          "debut", [](auto& o) -> auto& { return o.noms.debut; }, 0, kColonneLaPlusHaute,
          "première colonne de ce nom"_w)
      .Montre("TextBoxDebut")
      .Entier(
          "largeur", [](auto& o) -> auto& { return o.noms.largeur; }, 0, kColonneLaPlusHaute,
          "largeur maximum de ce nom")
      .Montre("TextBoxLargeur")
      .Choix("limite", &O::verifierCodesMax, {{limite, true}, {"0", false}},
             "arrêt après ce nombre de dépassements de code-max ; 0 : pas de vérification"_w)
      .Bouton("CaseCodmax", "0")
      .Alias("casecodmax", {{"oui", "0"}, {"non", limite}})
      .OuiNon("oublier", &O::oublierAnciennes, "oublie les marques et les intitulés d'un .MOD antérieur"_w)
      .Montre("CaseSup");
}

}  // namespace

const Description<OptionsPosmod>& DescriptionPosmod() {
  static const Description<OptionsPosmod> description = Decrire();
  return description;
}

}  // namespace quelvar::modalities
