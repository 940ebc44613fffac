#include "regression/logistique/resultats.h"

#include <cmath>
#include <string>
#include <string_view>

#include "core/programme/rapport.h"
#include "crosstab/tableau/khi2.h"
#include "regression/anatab/cellules.h"

namespace quelvar::regression {

namespace {

constexpr int kDecimalesOrdinaires = 4;
constexpr int kDecimalesDemandees = 5;  // from this value on DE= is a number of decimals
constexpr int kDecimalesDeChances = 2;
constexpr int kDecimalesDeProbabilite = 3;

int Decimales(const TravailDAnatab& travail) {
  return travail.parametres.de >= kDecimalesDemandees ? travail.parametres.de : kDecimalesOrdinaires;
}

std::vector<std::string> IntitulesDesParametres(const Modele& modele) {
  std::vector<std::string> intitules;
  for (std::size_t k = 0; k < modele.Explicatives(); ++k)
    if (!modele.Explicative(k).reference) intitules.push_back(modele.Explicative(k).intitule);
  return intitules;
}

std::string_view RaisonDAbsence(const DonneesDeBase& base, std::size_t k) {
  if (base.total[k] == 0) return "aucun individu";
  if (base.oui[k] == base.total[k]) return "tous répondent oui"_w;
  if (base.oui[k] == 0) return "aucun ne répond oui"_w;
  return "aucune situation où l'on réponde oui et non"_w;
}

std::string_view MarqueDeParametre(double depassement) {
  return crosstab::MarqueDeClasse(crosstab::ClasseDuDepassement(depassement), crosstab::kColonnesDeToutesLesMarques);
}

}  // namespace

std::vector<std::string> EffetsNonEstimes(const TravailDAnatab& travail) {
  std::vector<std::string> effets;
  for (std::size_t k = 0; k < travail.modele.Explicatives(); ++k)
    if (!travail.modele.Explicative(k).reference && !EstEstimee(travail, k))
      effets.push_back(Joindre({travail.modele.Explicative(k).intitule, " (", RaisonDAbsence(travail.base, k), ")"}));
  return effets;
}

std::vector<std::string> IntitulesDesParametres(const Modele& modele, const std::vector<std::size_t>& rangs) {
  const std::vector<std::string> tous = IntitulesDesParametres(modele);
  std::vector<std::string> intitules;
  for (const std::size_t rang : rangs) intitules.push_back(tous[rang]);
  return intitules;
}

TableauEdite TableauDeLaConstante(const TravailDAnatab& travail, const ModeleAjuste& ajuste) {
  const double alpha = ajuste.ajustement.parametres.alpha;
  const int decimales = Decimales(travail);
  TableauEdite tableau;
  std::vector<Cellule> cellules = {CelluleDecimale(alpha, decimales)};
  if (ajuste.lien == FonctionDeLien::Logistique) cellules.push_back(CelluleDecimale(std::exp(alpha), decimales));
  cellules.push_back(CelluleEnPoints(100 * Probabilite(ajuste.lien, alpha)));
  tableau.colonnes.resize(cellules.size());
  tableau.rangees.push_back({{}, {}, std::move(cellules)});
  return tableau;
}

TableauEdite TableauDesParametres(const TravailDAnatab& travail, const ModeleAjuste& ajuste) {
  const bool logistique = ajuste.lien == FonctionDeLien::Logistique;
  const std::vector<std::string> intitules = IntitulesDesParametres(travail.modele);
  const std::vector<double>& betas = ajuste.ajustement.parametres.betas;
  TableauEdite tableau;
  tableau.coin = "Effets marginaux";
  tableau.colonnes = {{Joindre({"Paramètre"_w})}, {"Odds-ratio"}, {"Effet en pourcentage"}};
  if (!logistique) tableau.colonnes.erase(tableau.colonnes.begin() + 1);
  for (std::size_t j = 0; j < betas.size(); ++j) {
    Rangee& rangee =
        tableau.rangees.emplace_back(Rangee{intitules[j], {}, {CelluleDecimale(betas[j], Decimales(travail))}});
    if (logistique) rangee.cellules.push_back(CelluleDecimale(std::exp(betas[j]), kDecimalesDeChances));
    rangee.cellules.push_back(CelluleEnPoints(EffetEnPoints(ajuste, betas[j])));
  }
  return tableau;
}

TableauEdite TableauDesVraisemblances(const ModeleAjuste& ajuste, const TestsDuModele& tests) {
  TableauEdite tableau;
  tableau.colonnes.resize(1);
  const auto ajouter = [&](std::string_view nom, double valeur) {
    tableau.rangees.push_back({std::string(nom), {}, {CelluleDecimale(valeur, kDecimalesOrdinaires)}});
  };
  ajouter("Cst seulement", -2 * tests.logConstante);
  ajouter("Modèle complet"_w, -2 * ajuste.ajustement.logVraisemblance);
  ajouter("Khideux Vrais.", tests.modele.khi2);
  return tableau;
}

TableauEdite TableauDesTests(const TravailDAnatab& travail, const TestsDuModele& tests) {
  const std::vector<std::string> intitules = IntitulesDesParametres(travail.modele);
  TableauEdite tableau;
  tableau.colonnes.resize(3);
  for (std::size_t j = 0; j < tests.parametres.size(); ++j) {
    const TestDeVraisemblance& test = tests.parametres[j];
    Rangee& rangee = tableau.rangees.emplace_back(Rangee{intitules[j], {}, {}});
    if (test.Impossible()) rangee.intitule = Joindre({" Khideux de Vrais.", "   Test impossible à calculer"_w});
    else
      rangee.cellules = {CelluleDecimale(test.khi2, kDecimalesOrdinaires),
                         CelluleDecimale(test.Depassement(), kDecimalesDeProbabilite),
                         CelluleTexte(MarqueDeParametre(test.Depassement()))};
  }
  return tableau;
}

TableauEdite TableauDesMoyennes(const TravailDAnatab& travail, const std::vector<double>& moyennes,
                                std::string_view sorte) {
  const double generale = travail.base.MoyenneGenerale();
  const auto ecart = [](std::string_view moyenne) {
    return Joindre({"Ecart de la moyenne ", moyenne, " à la moyenne générale en %"_w});
  };
  TableauEdite tableau;
  tableau.coin = Joindre({"Modalité explicative"_w});
  tableau.colonnes = {{Joindre({"Moyenne ", sorte})}, {ecart(sorte)}, {ecart("observée"_w)}};
  for (std::size_t k = 0; k < moyennes.size(); ++k)
    tableau.rangees.push_back(
        {travail.modele.Explicative(k).intitule,
         {},
         {CelluleDecimale(moyennes[k], kDecimalesOrdinaires), CelluleEnPoints(100 * (moyennes[k] - generale)),
          CelluleEnPoints(100 * (travail.base.Part(k) - generale))}});
  return tableau;
}

}  // namespace quelvar::regression
