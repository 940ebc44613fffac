#include "capture/dbase/edition.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/resultats/rangees.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLargeurHorsTri = 3;  // of a question that the flat sort cannot take with all the others

Cellule Effectif(std::int64_t valeur) { return {.valeur = static_cast<double>(valeur), .unite = Unite::Effectif}; }

}  // namespace

TableauEdite TableauDuTri(const QuestionDuTri& question, std::int64_t individus) {
  TableauEdite tableau;
  tableau.titres.push_back(
      Joindre({"Question ", question.nom, " Position ", NombreFixe(static_cast<double>(question.position), 4, 0),
               "    Code-max. ", NombreFixe(question.tri.codeMax, 3, 0)}));
  tableau.colonnes.resize(3);
  for (std::size_t code = 0; code < question.tri.effectifs.size(); ++code)
    if (const std::int64_t effectif = question.tri.effectifs[code]; effectif > 0)
      tableau.rangees.push_back({.titre = {},
                                 .intitule = {},
                                 .cellules = {Cellule{.valeur = static_cast<double>(code)}, Effectif(effectif)}});
  tableau.rangees.push_back(
      {.titre = {},
       .intitule = {},
       .cellules = {Cellule{.marque = "Tot."}, Effectif(individus), Cellule{.valeur = 100, .unite = Unite::Pourcent}}});
  return tableau;
}

void ImprimerTris(Rapport& rapport, const std::vector<QuestionDuTri>& questions, std::int64_t individus) {
  const FormeEnRangees forme{
      .places = {{.entiers = 4}, {.entiers = 6, .elargissement = Elargissement::DerriereUnNombre}, {.entiers = 4}}};
  rapport.Ligne();
  rapport.Ligne("Impression des tris a plat");
  rapport.Ligne();
  for (const QuestionDuTri& question : questions) {
    ImprimerRangees(rapport, TableauDuTri(question, individus), forme);
    rapport.Ligne();
  }
  rapport.Ligne({"Il y a ", NombreNu(questions.size()), " questions"});
  if (std::ranges::any_of(questions, [](const QuestionDuTri& q) { return q.largeur == kLargeurHorsTri; })) {
    rapport.Ligne("Avec TRIAPL, passez d'abord les tris de questions sur 3 ");
    rapport.Ligne("positions ou, s'il y en a de trop, une partie seulement ");
  }
}

}  // namespace quelvar::capture
