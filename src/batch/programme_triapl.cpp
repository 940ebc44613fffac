#include "batch/programmes.h"
#include "sorts/triapl/triapl.h"

namespace quelvar::batch {

Programme ProgrammeTriapl() {
  return Description<sorts::OptionsTriapl>(
             "triapl", "Tri à plat : effectifs et pourcentages de chaque question (.TAP)"_w, sorts::Triapl)
      .OuiNon("modalites", &sorts::OptionsTriapl::intitules, "intitulés des modalités pris dans le .MOD"_w)
      .Alias({"casemod"})
      .Choix<bool>("nonreponses", &sorts::OptionsTriapl::nonReponses, {{"prises", true}, {"exclues", false}},
                   "les non-réponses (code zéro) comptent comme une réponse"_w)
      .Libre("triangulaire", "oui|non", "non",
             "prépare le .TRG du graphique triangulaire ; exclut les non-réponses, sauf nonreponses=prises ensuite"_w,
             [](sorts::OptionsTriapl& options, const std::string& valeur) {
               options.triangulaire = LireOuiNon("triangulaire", valeur);
               if (options.triangulaire) options.nonReponses = false;
             })
      .Alias({"casetriang"})
      .OuiNon("reponsesmultiples", &sorts::OptionsTriapl::reponsesMultiples,
              "cumule toutes les questions comme réponses multiples à une même question"_w)
      .Alias({"caserepmult", "repmult"})
      .Entier("limite", &sorts::OptionsTriapl::limite, 0, 32767,
              "arrêt après ce nombre de dépassements de code-max ; 0 : pas de vérification"_w)
      .Libre("verification", "oui|non", "non", "arrêt après 50 dépassements, comme la case du formulaire"_w,
             [](sorts::OptionsTriapl& options, const std::string& valeur) {
               options.limite = LireOuiNon("verification", valeur) ? sorts::kLimiteDuFormulaire : 0;
             })
      .Alias({"caseverif"})
      .Texte("donnees", &sorts::OptionsTriapl::fichierDonnees, "FICHIER",
             "autre fichier de données que le .DAT du générique"_w)
      .Alias({"casedat", "dat"});
}

}  // namespace quelvar::batch
