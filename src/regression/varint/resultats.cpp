#include "regression/varint/resultats.h"

#include "core/resultats/cellules.h"

namespace quelvar::regression {

namespace {

Cellule Pem(const LienDeProfil& lien) { return {.valeur = lien.pem, .unite = Unite::Pourcent}; }

}  // namespace

TableauEdite TableauLong(const FichierPos& pos, std::span<const LienDeProfil> liens) {
  TableauEdite tableau;
  tableau.coin = "Nom";
  tableau.colonnes = {{"PEM"}, {Joindre({"Nom long éventuel"_w})}};
  for (const LienDeProfil& lien : liens) {
    const Question& question = pos.questions[lien.question];
    tableau.rangees.push_back({question.nom, {}, {Pem(lien), CelluleTexte(question.intitule)}});
  }
  return tableau;
}

TableauEdite TableauCourt(const FichierPos& pos, std::span<const LienDeProfil> liens) {
  TableauEdite tableau;
  Rangee& rangee = tableau.rangees.emplace_back();
  for (const LienDeProfil& lien : liens) {
    tableau.colonnes.push_back({pos.questions[lien.question].nom});
    rangee.cellules.push_back(Pem(lien));
  }
  return tableau;
}

}  // namespace quelvar::regression
