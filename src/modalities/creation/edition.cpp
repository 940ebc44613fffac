#include "modalities/creation/edition.h"

#include "core/chiffres/nombres.h"

namespace quelvar::modalities {

namespace {

// The columns of a question are those of its line in the file, digits or not: texts, and no cells of a table.
void ImprimerQuestions(const FichierPos& pos, const ChoixQuestions& choix, Statut statut, Rapport& rapport,
                       const Dialogue& dialogue) {
  for (const std::size_t rang : choix.Rangs(statut)) {
    rapport.Ligne(TexteQuestion(pos, rang));
    const Question& question = pos.questions[rang];
    if (question.codeMax < kPremierCodeDouble) continue;
    if (statut == Statut::Supplementaire && question.codeMax > kDernierCodeNomme) continue;
    rapport.Ligne();
    Avertir(rapport, dialogue, Joindre({"ATTENTION *** Code-maximum depassant 35 a la question ", question.nom}));
  }
}

void ImprimerOptions(const OptionsPosmod& options, bool ancienMod, Rapport& rapport) {
  rapport.Ligne();
  rapport.Ligne("Options (ne sont modifiables qu'en niveau 2 d'utilisateur)");
  rapport.Ligne();
  rapport.Ligne(std::string_view(options.codesZero
                                     ? "Les codes zero sont pris en compte et mis en modalites supplementaires"
                                     : "Les codes zero ne sont pas pris en compte"));
  rapport.Ligne(std::string_view(options.individus
                                     ? "Les individus sont pris en compte"
                                     : "Les individus ne seront pas pris en compte dans les graphiques factoriels"));
  rapport.Ligne(options.verifierCodesMax
                    ? "Les codes max sont verifies (arret apres plus de 50 erreurs, auparavant le code fautif "
                      "est mis à zero)"_w
                    : "Les codes max ne sont pas verifies (les codes depassant le code-max ou >35 sont mis à zero)"_w);
  if (!ancienMod) return;
  rapport.Ligne(std::string_view(
      options.oublierAnciennes ? "Les anciennes indications de modalites supplementaires ne sont pas prises en compte"
                               : "Il y a deja un fichier de modalites et les anciennes indications sont prises en "
                                 "compte (modalites supplementaires et intitules)"));
}

}  // namespace

void ImprimerChoix(const FichierPos& pos, const ChoixQuestions& choix, const NombresDeModalites& nombres,
                   const OptionsPosmod& options, bool ancienMod, Rapport& rapport, const Dialogue& dialogue) {
  rapport.Ligne();
  rapport.Ligne("Impression des questions actives");
  ImprimerQuestions(pos, choix, Statut::Actif, rapport, dialogue);
  rapport.Ligne({"Nombre de modalités actives = "_w, NombreNu(nombres.actives)});
  rapport.Ligne();
  rapport.Ligne("Impression des questions supplémentaires"_w);
  ImprimerQuestions(pos, choix, Statut::Supplementaire, rapport, dialogue);
  if (choix.Nombre(Statut::Supplementaire) == 0) {
    rapport.Ligne("Pas de questions supplémentaires"_w);
  } else {
    rapport.Ligne({"Nombre de modalités supplémentaires = "_w, NombreNu(nombres.supplementaires)});
  }
  ImprimerOptions(options, ancienMod, rapport);
}

}  // namespace quelvar::modalities
