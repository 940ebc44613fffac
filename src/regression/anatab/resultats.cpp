#include "regression/anatab/resultats.h"

#include <algorithm>
#include <string>

#include "core/programme/rapport.h"
#include "crosstab/tableau/khi2.h"
#include "regression/anatab/cellules.h"

namespace quelvar::regression {

namespace {

constexpr int kDecimalesDePart = 4;

std::string_view RoleDe(const ModaliteCodee& modalite) {
  if (modalite.aExpliquer) return "modalité à expliquer"_w;
  return modalite.reference ? "modalité de référence"_w : std::string_view();
}

}  // namespace

TableauEdite TableauDesQuestions(const Modele& modele) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Intitulés des questions, nombre de modalités et type de la question"_w})};
  tableau.colonnes.resize(2);
  for (const QuestionCodee& question : modele.questions)
    tableau.rangees.push_back(
        {question.nom,
         {},
         {CelluleEffectif(question.nombre),
          CelluleTexte(question.references > 0 ? "Question explicative" : "Question à expliquer"_w)}});
  return tableau;
}

TableauEdite TableauDesModalites(const Modele& modele) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Intitulés des modalités et type de chacune"_w})};
  tableau.colonnes.resize(2);
  for (const QuestionCodee& question : modele.questions)
    for (std::size_t i = question.premiere; i < question.premiere + question.nombre; ++i)
      tableau.rangees.push_back({modele.codage[i].intitule,
                                 {},
                                 {CelluleTexte(question.references > 0 ? "modalité de question explicative"_w
                                                                       : "modalité de question à expliquer"_w),
                                  CelluleTexte(RoleDe(modele.codage[i]))}});
  return tableau;
}

TableauEdite TableauDeBase(const Modele& modele, const DonneesDeBase& base) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"(Y)", modele.titre})};
  tableau.coin = "Mod.explicative (X)";
  tableau.colonnes = {{"Oui"}, {"Non"}, {"Total"}, {"Prop de Y"}};
  const auto ajouter = [&](std::string_view intitule, double oui, double total, double part) {
    tableau.rangees.push_back({std::string(intitule),
                               {},
                               {CelluleEffectif(oui), CelluleEffectif(total - oui), CelluleEffectif(total),
                                CelluleDecimale(part, kDecimalesDePart)}});
  };
  for (std::size_t k = 0; k < base.total.size(); ++k)
    ajouter(modele.Explicative(k).intitule, base.oui[k], base.total[k], base.Part(k));
  tableau.rangees.emplace_back();
  ajouter("Tri à plat"_w, base.nombreOui, base.individus, base.MoyenneGenerale());
  return tableau;
}

TableauEdite TableauDesSituations(const AnalyseTabulaire& analyse) {
  TableauEdite tableau;
  tableau.colonnes.resize(analyse.table.questions);
  for (const char* const titre : {"Eff.", "Pour.", "Khi2", "Test"}) tableau.colonnes.push_back({titre});
  for (std::size_t s = 0; s < analyse.examinees; ++s) {
    const Situation& situation = analyse.table.situations[s];
    std::vector<Cellule>& cellules = tableau.rangees.emplace_back().cellules;
    cellules.reserve(tableau.colonnes.size());
    for (const std::uint32_t k : analyse.table.Modalites(s))
      cellules.push_back(CelluleTexte(RognerDroite(Joindre({analyse.cellules[k].intitule, analyse.cellules[k].role}))));
    cellules.push_back(CelluleEffectif(situation.effectif));
    cellules.push_back(CelluleEnPoints(situation.Brut()));
    cellules.push_back(CelluleDecimale(situation.khi2.khi2, 1));
    cellules.push_back(CelluleTexte(MarqueDeCellule(situation.khi2.classe)));
  }
  return tableau;
}

std::string_view MarqueDeCellule(int classe) {
  return crosstab::MarqueDeClasse(classe, crosstab::kColonnesDeToutesLesMarques);
}

namespace {

// The name of both ends of it.
Colonne Intervalle() { return {Joindre({"Intervalle de confiance à 1 écart-type"_w})}; }

}  // namespace

TableauEdite TableauDeLaReference(const AnalyseTabulaire& analyse) {
  const double part = analyse.PartReference();
  const double ecart = analyse.Reference().EcartTypeDeLaPart();
  TableauEdite tableau;
  tableau.coin = Joindre({"Situation de référence"_w});
  tableau.colonnes = {{"Pourcentage"}, {Joindre({"Validité"_w})}, Intervalle(), Intervalle()};
  tableau.rangees = {
      {{},
       {},
       {CellulePourcent(100 * part), CelluleTexte(MarqueDeCellule(analyse.khi2Reference.classe)),
        CellulePourcent(100 * std::max(0.0, part - ecart)), CellulePourcent(100 * std::min(1.0, part + ecart))}}};
  return tableau;
}

int DecimalesDEffet(MesureDEffet mesure) { return mesure == MesureDEffet::Points ? 1 : 2; }

TableauEdite TableauDesEffets(const AnalyseTabulaire& analyse, const Modele& modele) {
  const bool points = analyse.mesure == MesureDEffet::Points;
  const Unite unite = points ? Unite::Pourcent : Unite::Nombre;
  const std::string signe = points ? "%" : "";
  TableauEdite tableau;
  tableau.coin = "Effets marginaux";
  tableau.colonnes = {{"Effet"}, {"Remarque"}, Intervalle(), Intervalle()};
  for (const Effet& effet : analyse.effets) {
    const std::string_view remarque = effet.Seul()                  ? "Un seul sous-effet"
                                      : effet.EcartDepasseMoyenne() ? "Ecart-Type > Moyenne"
                                                                    : "";
    tableau.rangees.push_back({modele.Explicative(effet.modalite).intitule,
                               {},
                               {{effet.moyenne, unite, DecimalesDEffet(analyse.mesure), signe},
                                CelluleTexte(remarque),
                                {effet.Bas(), unite, 1, signe},
                                {effet.Haut(), unite, 1, signe}}});
  }
  return tableau;
}

TableDePaire TableDe(const AnalyseTabulaire& analyse, const Modele& modele, const SousEffet& sousEffet) {
  const auto rangee = [&](std::uint32_t s) {
    const Situation& situation = analyse.table.situations[s];
    const std::size_t k = analyse.cellules[analyse.table.Modalites(s)[sousEffet.question]].designee;
    return TableDePaire::Rangee{k < modele.Explicatives() ? std::string_view(modele.Explicative(k).nom) : "    ",
                                situation.OuiConserve(), situation.effectif};
  };
  const TableDePaire::Rangee a = rangee(sousEffet.premiere);
  const TableDePaire::Rangee b = rangee(sousEffet.seconde);
  const TableDePaire::Rangee deux{"  Tot", a.oui + b.oui, a.effectif + b.effectif};
  return {{a, b, deux}, modele.Expliquee().nom, a.PartOui() > deux.PartOui()};
}

}  // namespace quelvar::regression
