#include "sorts/triapl/edition.h"

#include "core/resultats/largeurfixe.h"

namespace quelvar::sorts {

std::string EnTeteDe(const Question& question, const double* nonReponses) {
  std::string ligne = Joindre({"Question ", question.nom, " Position ", NombreFixe(question.position, 4, 0),
                               "    Code-max. ", NombreFixe(question.codeMax, 3, 0)});
  if (nonReponses) ligne += Joindre({" (NR= ", NombreFixe(*nonReponses, 4, 0), ")"});
  return Joindre({ligne, " ", question.intitule});
}

void EcrireTableau(Rapport& rapport, const TableauEdite& tableau) {
  for (const std::string& titre : tableau.titres) rapport.Ligne(titre);
  ImprimerLargeurFixe(rapport, tableau);
}

std::string LigneTriangle(const Question& question, const EffectifsTriangle& effectifs) {
  const double somme = effectifs[0] + effectifs[1] + effectifs[2];
  std::string ligne = Joindre({" ", question.nom});
  for (const double effectif : effectifs) ligne += NombreFixe(somme == 0 ? 0 : 100 * effectif / somme, 3, 1);
  ligne += question.intitule.empty() ? question.nom : question.intitule;
  return ligne;
}

}  // namespace quelvar::sorts
