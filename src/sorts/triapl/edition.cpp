#include "sorts/triapl/edition.h"

#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"

namespace quelvar::sorts {

void ImprimerPonderation(Rapport& rapport, std::int64_t individus, std::int64_t avant) {
  rapport.Ligne("Les effectifs sont le résultat d'une pondération"_w);
  rapport.Ligne({"L'effectif construit avec  la pondération est de "_w, NombreNu(individus)});
  rapport.Ligne({"L'effectif d'origine avant la pondération est de "_w, NombreNu(avant)});
}

void ImprimerTitreDesTris(Rapport& rapport, const OptionsTriapl& options) {
  rapport.Ligne(" ");
  rapport.Suite("Impression des tris a plat");
  if (!options.nonReponses) rapport.Suite(", non-réponses (de code zéro) exclues"_w);
  rapport.Ligne();
  if (options.triangulaire) {
    rapport.Ligne("Préparation du graphique triangulaire :"_w);
    rapport.Ligne("les codes supérieurs à 3 sont ajoutés aux non-réponses"_w);
  }
  rapport.Ligne(" ");
}

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
