#include "sorts/triapl/triapl_options.h"

#include "core/options/sortie.h"

namespace quelvar::sorts {

namespace {

using O = OptionsTriapl;

constexpr int kLimiteLaPlusHaute = 32767;

void PoserTriangulaire(O& options, const std::string& valeur) {
  options.triangulaire = LireOuiNon("triangulaire", valeur);
  if (options.triangulaire) options.nonReponses = false;
}

std::vector<std::string> EcrireTriangulaire(const O& options) { return {options.triangulaire ? "oui" : "non"}; }

Description<O> Decrire() {
  const std::string limiteDuFormulaire = Nombre(kLimiteDuFormulaire);
  return Description<O>("triapl", "Tri à plat : effectifs et pourcentages de chaque question (.TAP)"_w, Triapl)
      .OuiNon("modalites", &O::intitules, "intitulés des modalités pris dans le .MOD"_w)
      .Montre("CaseMod")
      .Libre("triangulaire", "oui|non",
             "prépare le .TRG du graphique triangulaire ; exclut les non-réponses, sauf nonreponses=prises"_w,
             PoserTriangulaire, EcrireTriangulaire)
      .Parmi({"oui", "non"})
      .Montre("CaseTriang")
      .Choix("nonreponses", &O::nonReponses, {{"prises", true}, {"exclues", false}},
             "les non-réponses (code zéro) comptent comme une réponse"_w)
      .Bouton("BoutNROui", "prises")
      .Bouton("BoutNRNon", "exclues")
      .OuiNon("reponsesmultiples", &O::reponsesMultiples,
              "cumule toutes les questions comme réponses multiples à une même question"_w)
      .Montre("CaseRepMult")
      .Alias({"repmult"})
      .Entier("limite", &O::limite, 0, kLimiteLaPlusHaute,
              "arrêt après ce nombre de dépassements de code-max ; 0 : pas de vérification"_w)
      .Bouton("CaseVerif", limiteDuFormulaire)
      .Alias("verification", {{"oui", limiteDuFormulaire}, {"non", "0"}})
      .Alias("caseverif", {{"oui", limiteDuFormulaire}, {"non", "0"}})
      .Fichier("donnees", &O::fichierDonnees, "FICHIER", "autre fichier de données que le .DAT du générique"_w)
      .Montre("CaseDat")
      .Alias({"dat"})
      .Choix("sortie", &O::sortie, MotsDesSorties(), kAideSortie);
}

}  // namespace

const Description<OptionsTriapl>& DescriptionTriapl() {
  static const Description<OptionsTriapl> description = Decrire();
  return description;
}

}  // namespace quelvar::sorts
