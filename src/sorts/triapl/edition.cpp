#include "sorts/triapl/edition.h"

#include "core/resultats/cellules.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"

namespace quelvar::sorts {

std::string EnTeteDe(const Question& question, const double* nonReponses) {
  Rangee rangee{Joindre({"Question ", question.nom}),
                question.intitule,
                {CelluleEntiere(question.position), CelluleEntiere(question.codeMax)}};
  if (nonReponses != nullptr) rangee.cellules.push_back({*nonReponses, Unite::Effectif, 0, ")"});
  return TexteDeRangee(rangee,
                       {.places = {{" Position ", 4}, {"    Code-max. ", 3}, {" (NR= ", 4}}, .avantIntitule = " "});
}

void ImprimerTableau(Rapport& rapport, const TableauEdite& tableau) {
  rapport.Lignes(tableau.titres);
  ImprimerLargeurFixe(rapport, tableau);
}

std::string LigneTriangle(const Question& question, const PartsTrg& parts) {
  return LigneDePointTrg(Joindre({" ", question.nom}), parts,
                         question.intitule.empty() ? question.nom : question.intitule);
}

}  // namespace quelvar::sorts
