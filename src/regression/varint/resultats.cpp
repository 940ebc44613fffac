#include "regression/varint/resultats.h"

namespace quelvar::regression {

namespace {

Cellule Pem(const LienDeProfil& lien) { return {lien.pem, Unite::Pourcent, 0, {}}; }

}  // namespace

TableauEdite TableauLong(const FichierPos& pos, std::span<const LienDeProfil> liens) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Nom    PEM  Nom long éventuel"_w})};
  tableau.colonnes.resize(1);
  for (const LienDeProfil& lien : liens) {
    const Question& question = pos.questions[lien.question];
    tableau.rangees.push_back({question.nom, question.intitule, {Pem(lien)}});
  }
  return tableau;
}

TableauEdite TableauCourt(const FichierPos& pos, std::span<const LienDeProfil> liens) {
  TableauEdite tableau;
  tableau.coin = " ";
  Rangee& rangee = tableau.rangees.emplace_back(Rangee{" ", {}, {}});
  for (const LienDeProfil& lien : liens) {
    tableau.colonnes.push_back({pos.questions[lien.question].nom});
    rangee.cellules.push_back(Pem(lien));
  }
  return tableau;
}

}  // namespace quelvar::regression
