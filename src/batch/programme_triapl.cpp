#include "batch/programmes.h"
#include "sorts/triapl.h"

namespace quelvar::batch {

Programme ProgrammeTriapl() {
  return Description<OptionsTriapl>("triapl", "Tri à plat : effectifs et pourcentages de chaque question (.TAP)"_w,
                                    Triapl)
      .OuiNon("modalites", &OptionsTriapl::intitules, "intitulés des modalités pris dans le .MOD"_w)
      .Choix<bool>("nonreponses", &OptionsTriapl::nonReponses, {{"prises", true}, {"exclues", false}},
                   "les non-réponses (code zéro) comptent comme une réponse"_w)
      .Libre("triangulaire", "oui|non", "non",
             "prépare le .TRG du graphique triangulaire ; exclut les non-réponses, sauf nonreponses=prises ensuite"_w,
             [](OptionsTriapl& options, const std::string& valeur) {
               const std::string mot = Minuscules(valeur);
               if (mot != "oui" && mot != "non")
                 throw UsageIncorrect(Joindre({"l'option triangulaire attend oui|non et non \"", valeur, "\""}));
               options.triangulaire = mot == "oui";
               if (options.triangulaire) options.nonReponses = false;
             })
      .OuiNon("reponsesmultiples", &OptionsTriapl::reponsesMultiples,
              "cumule toutes les questions comme réponses multiples à une même question"_w)
      .Entier("limite", &OptionsTriapl::limite, 0, 32767,
              "arrêt après ce nombre de dépassements de code-max ; 0 : pas de vérification"_w)
      .Texte("donnees", &OptionsTriapl::fichierDonnees, "FICHIER",
             "autre fichier de données que le .DAT du générique"_w);
}

}  // namespace quelvar::batch
