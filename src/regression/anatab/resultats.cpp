#include "regression/anatab/resultats.h"

#include <algorithm>
#include <string>

#include "core/programme/rapport.h"

namespace quelvar::regression {

namespace {

constexpr int kDecimalesDePart = 4;
constexpr std::size_t kCelluleImprimee = 7;  // of a situation: four characters of a label, three of its role

Cellule Effectif(double nombre) { return {nombre, Unite::Effectif, 0, {}}; }
Cellule Pourcentage(double valeur, std::string_view marque = {}) {
  return {valeur, Unite::Pourcent, 1, std::string(marque)};
}
Cellule Nombre(double valeur, int decimales) { return {valeur, Unite::Nombre, decimales, {}}; }
Cellule Mot(std::string_view texte) { return {{}, Unite::Nombre, 0, std::string(texte)}; }

}  // namespace

TableauEdite TableauDesQuestions(const Modele& modele) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Intitulés des questions, nombre de modalités et type de la question"_w})};
  tableau.colonnes = {{}};
  for (const QuestionCodee& question : modele.questions) {
    const std::string_view type =
        question.references > 0 ? " modalités. Question explicative "_w : " modalités. Question à expliquer "_w;
    tableau.rangees.push_back({question.nom, std::string(type), {Effectif(static_cast<double>(question.nombre))}});
  }
  return tableau;
}

TableauEdite TableauDesModalites(const Modele& modele) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Intitulés des modalités et type de chacune"_w})};
  for (const QuestionCodee& question : modele.questions)
    for (std::size_t i = question.premiere; i < question.premiere + question.nombre; ++i) {
      const ModaliteCodee& modalite = modele.codage[i];
      const std::string_view role = modalite.aExpliquer  ? " modalité à expliquer "_w
                                    : modalite.reference ? " modalité de référence"_w
                                                         : std::string_view("                      ");
      tableau.rangees.push_back(
          {modalite.intitule, Joindre({question.references > 0 ? " modalité de question explicative "_w
                                                               : " modalité de question à expliquer "_w,
                                       role})});
    }
  return tableau;
}

TableauEdite TableauDeBase(const Modele& modele, const DonneesDeBase& base) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"                         (Y)", modele.titre})};
  tableau.coin = "Mod.explicative (X)      ";
  tableau.colonnes = {{"  Oui "}, {"  Non "}, {" Total"}, {"  Prop de Y"}};
  const auto ajouter = [&](std::string_view intitule, double oui, double total, double part) {
    tableau.rangees.push_back(
        {std::string(intitule),
         {},
         {Effectif(oui), Effectif(total - oui), Effectif(total), Nombre(part, kDecimalesDePart)}});
  };
  for (std::size_t k = 0; k < base.total.size(); ++k)
    ajouter(modele.Explicative(k).intitule, base.oui[k], base.total[k], base.Part(k));
  tableau.rangees.emplace_back();
  ajouter("Tri à plat"_w, base.nombreOui, base.individus, base.MoyenneGenerale());
  return tableau;
}

TableauEdite TableauDesSituations(const AnalyseTabulaire& analyse) {
  TableauEdite tableau;
  tableau.coin = std::string(analyse.table.questions * kCelluleImprimee, ' ');
  tableau.colonnes = {{"  Eff."}, {"Pour."}, {" Khi2"}, {" Test"}};
  for (std::size_t s = 0; s < analyse.examinees; ++s) {
    const Situation& situation = analyse.table.situations[s];
    std::string noms;
    for (const std::uint32_t k : analyse.table.Modalites(s))
      noms += Joindre({analyse.cellules[k].intitule, Milieu(analyse.cellules[k].role, 1, 3)});
    tableau.rangees.push_back({std::move(noms),
                               {},
                               {Effectif(situation.effectif), Pourcentage(situation.Brut()),
                                Nombre(situation.khi2.khi2, 1), Mot(MarqueDeCellule(situation.khi2.classe))}});
  }
  return tableau;
}

std::string_view MarqueDeCellule(int classe) {
  static constexpr std::string_view marques[] = {"ns ", "*  ", "** ", "***"};
  return marques[classe];
}

TableauEdite TableauDeLaReference(const AnalyseTabulaire& analyse) {
  const double part = analyse.PartReference();
  const double ecart = analyse.Reference().EcartTypeDeLaPart();
  TableauEdite tableau;
  tableau.colonnes.resize(4);
  tableau.rangees = {
      {{},
       {},
       {Pourcentage(100 * part, "%"), Mot(MarqueDeCellule(analyse.khi2Reference.classe)),
        Pourcentage(100 * std::max(0.0, part - ecart), "% "), Pourcentage(100 * std::min(1.0, part + ecart), "% ")}}};
  return tableau;
}

int DecimalesDEffet(MesureDEffet mesure) { return mesure == MesureDEffet::Points ? 1 : 2; }

TableauEdite TableauDesEffets(const AnalyseTabulaire& analyse, const Modele& modele) {
  const bool points = analyse.mesure == MesureDEffet::Points;
  const Unite unite = points ? Unite::Pourcent : Unite::Nombre;
  const std::string signe = points ? "% " : "  ";
  TableauEdite tableau;
  tableau.colonnes.resize(4);
  for (const Effet& effet : analyse.effets) {
    const std::string_view remarque = effet.Seul()                  ? "Un seul sous-effet"
                                      : effet.EcartDepasseMoyenne() ? "Ecart-Type > Moyenne"
                                                                    : "";
    tableau.rangees.push_back({modele.Explicative(effet.modalite).intitule,
                               {},
                               {{effet.moyenne, unite, DecimalesDEffet(analyse.mesure), signe},
                                Mot(remarque),
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
