#include "crosstab/edition/tables.h"

#include <utility>

#include "core/resultats/cellules.h"

namespace quelvar::crosstab {

namespace {

std::vector<std::string> Titres(const TableauTitre& titre, Texte contenu) {
  std::vector<std::string> titres;
  if (titre.filtre != nullptr)
    titres.push_back(Joindre({"Variable test ", titre.filtre->nom, " ", titre.modaliteFiltre}));
  titres.push_back(Joindre({titre.ligne.nom, " ", titre.ligne.intitule, " x ", titre.colonne.nom, " ",
                            titre.colonne.intitule, " : ", contenu}));
  return titres;
}

// What a table shows: of a cell, at the end of a row, below a column, and where the totals meet.
template <class Case, class Fin, class Pied>
struct Remplissage {
  std::string_view nom;
  Case deCase;
  Fin deLigne;
  Pied deColonne;
  Cellule dernier;
};
template <class Case, class Fin, class Pied>
Remplissage(std::string_view, Case, Fin, Pied, Cellule) -> Remplissage<Case, Fin, Pied>;

// A row and a column a modality, and those of the totals.
template <class Case, class Fin, class Pied>
TableauEdite Dresser(const TableauTitre& titre, const Remplissage<Case, Fin, Pied>& remplissage) {
  const TableauCroise& t = titre.tableau;
  TableauEdite tableau;
  tableau.titres = Titres(titre, remplissage.nom);
  tableau.coin = titre.ligne.nom;
  for (const std::size_t j : t.colonnes) tableau.colonnes.push_back({std::string(Rogner(titre.IntituleColonne(j)))});
  tableau.colonnes.push_back({"TOT"});
  for (const std::size_t i : t.lignes) {
    Rangee& rangee = tableau.rangees.emplace_back(Rangee{std::string(Rogner(titre.IntituleLigne(i)))});
    for (const std::size_t j : t.colonnes) rangee.cellules.push_back(remplissage.deCase(i, j));
    rangee.cellules.push_back(remplissage.deLigne(i));
  }
  Rangee& pied = tableau.rangees.emplace_back(Rangee{"TOT"});
  for (const std::size_t j : t.colonnes) pied.cellules.push_back(remplissage.deColonne(j));
  pied.cellules.push_back(remplissage.dernier);
  return tableau;
}

TableauEdite Effectifs(const TableauTitre& titre) {
  const TableauCompte& t = titre.tableau.compte;
  return Dresser(
      titre, Remplissage{"effectifs", [&](std::size_t i, std::size_t j) { return CelluleEffectif(t.effectifs(i, j)); },
                         [&](std::size_t i) { return CelluleEffectif(t.marges.lignes[i]); },
                         [&](std::size_t j) { return CelluleEffectif(t.marges.colonnes[j]); },
                         CelluleEffectif(t.marges.total)});
}

const Cellule kCent = {100.0, Unite::Pourcent};
Cellule Pourcent(double valeur, std::string_view marque = {}) {
  return {valeur, Unite::Pourcent, 1, std::string(marque)};
}
Cellule Arrondi(double pourcentage, std::string_view marque = {}) { return Pourcent(AuDixieme(pourcentage), marque); }

TableauEdite Pourcentages(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  return Dresser(titre, Remplissage{"pourcentages en ligne",
                                    [&](std::size_t i, std::size_t j) {
                                      return Arrondi(t.details.pourcentages(i, j), t.AuDessus(i, j) ? "+" : "-");
                                    },
                                    [](std::size_t) { return kCent; },
                                    [&](std::size_t j) { return Arrondi(t.details.partsColonnes[j]); }, kCent});
}

// The share of each row behind its percentages.
void AjouterParts(const TableauTitre& titre, TableauEdite& pourcentages) {
  pourcentages.colonnes.push_back({"Part"});
  auto rangee = pourcentages.rangees.begin();
  for (const std::size_t i : titre.tableau.lignes)
    (rangee++)->cellules.push_back(Arrondi(titre.tableau.details.partsLignes[i]));
  rangee->cellules.push_back(kCent);
}

TableauEdite Contributions(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  const auto cellule = [](double contribution) { return Cellule{contribution, Unite::Nombre, 1}; };
  return Dresser(titre,
                 Remplissage{"contributions au khi-deux",
                             [&](std::size_t i, std::size_t j) { return cellule(t.details.contributions(i, j)); },
                             [&](std::size_t i) { return cellule(t.contributionsLignes[i]); },
                             [&](std::size_t j) { return cellule(t.contributionsColonnes[j]); }, cellule(t.khi2)});
}

TableauEdite Attractions(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  const AttractionsDuTableau attractions = CalculerAttractions(t.compte);
  return Dresser(titre, Remplissage{"PEM locaux",
                                    [&](std::size_t i, std::size_t j) {
                                      return Pourcent(attractions.pem(i, j),
                                                      attractions.khi2(i, j) > kSeuilAttraction ? "*" : "");
                                    },
                                    [&](std::size_t i) { return Pourcent(t.details.partsLignes[i]); },
                                    [](std::size_t) { return Cellule{}; }, kCent});
}

TableauEdite Statistiques(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  TableauEdite tableau;
  tableau.titres = Titres(titre, "statistiques");
  tableau.colonnes = {{"Valeur"}};
  tableau.rangees = {{"Khi-deux", {}, {{t.khi2, Unite::Nombre, 1}}},
                     {Joindre({"Degrés de liberté"_w}), {}, {CelluleEntiere(t.degres)}},
                     {Joindre({"Probabilité"_w}),
                      {},
                      {{t.proba.Depassement(), Unite::Nombre, 3, std::string(Rogner(t.proba.marque))}}},
                     {"PEM", {}, {Arrondi(t.pem)}}};
  return tableau;
}

}  // namespace

TablesCroisees EnTables(const TableauTitre& titre, bool etendues) {
  TablesCroisees tables{Effectifs(titre), Pourcentages(titre), {}, {}};
  AjouterParts(titre, tables.pourcentages);
  if (etendues) {
    tables.contributions = Contributions(titre);
    tables.attractions = Attractions(titre);
  }
  return tables;
}

void AjouterTables(const TableauTitre& titre, TablesCroisees tables, std::vector<TableauEdite>& liste) {
  liste.push_back(std::move(tables.effectifs));
  liste.push_back(std::move(tables.pourcentages));
  liste.push_back(Statistiques(titre));
}

}  // namespace quelvar::crosstab
