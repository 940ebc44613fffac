#include "capture/dbase/edition.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"
#include "core/resultats/rangees.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLargeurHorsTri = 3;  // of a question that the flat sort cannot take with all the others

}  // namespace

TableauEdite TableauDuTri(const QuestionDuTri& question, std::int64_t individus) {
  TableauEdite tableau;
  tableau.titres.push_back(
      TexteDeRangee({.titre = Joindre({"Question ", question.nom}),
                     .intitule = {},
                     .cellules = {CelluleEntiere(question.position), CelluleEntiere(question.tri.codeMax)}},
                    {.places = {{" Position ", 4}, {"    Code-max. ", 3}}}));
  tableau.colonnes.resize(3);
  for (std::size_t code = 0; code < question.tri.effectifs.size(); ++code)
    if (const std::int64_t effectif = question.tri.effectifs[code]; effectif > 0)
      tableau.rangees.push_back(
          {.titre = {}, .intitule = {}, .cellules = {CelluleEntiere(code), CelluleEffectif(effectif)}});
  tableau.rangees.push_back({.titre = {},
                             .intitule = {},
                             .cellules = {CelluleTexte("Tot."), CelluleEffectif(individus),
                                          Cellule{.valeur = 100, .unite = Unite::Pourcent}}});
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
