#include "crosstab/resultats.h"

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

// The frame that counts and percentages share: a row and a column a modality, and those of the totals.
TableauEdite Cadre(const TableauTitre& titre, Texte contenu) {
  TableauEdite tableau;
  tableau.titres = Titres(titre, contenu);
  tableau.coin = titre.ligne.nom;
  for (const std::size_t j : titre.tableau.colonnes)
    tableau.colonnes.push_back({std::string(Rogner(titre.IntituleColonne(j)))});
  tableau.colonnes.push_back({"TOT"});
  for (const std::size_t i : titre.tableau.lignes)
    tableau.rangees.push_back({std::string(Rogner(titre.IntituleLigne(i)))});
  tableau.rangees.push_back({"TOT"});
  return tableau;
}

TableauEdite Effectifs(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  TableauEdite tableau = Cadre(titre, "effectifs");
  auto rangee = tableau.rangees.begin();
  for (const std::size_t i : t.lignes) {
    for (const std::size_t j : t.colonnes) rangee->cellules.push_back({t.compte.effectifs(i, j), Unite::Effectif});
    (rangee++)->cellules.push_back({t.compte.marges.lignes[i], Unite::Effectif});
  }
  for (const std::size_t j : t.colonnes) rangee->cellules.push_back({t.compte.marges.colonnes[j], Unite::Effectif});
  rangee->cellules.push_back({t.compte.marges.total, Unite::Effectif});
  return tableau;
}

TableauEdite Pourcentages(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  TableauEdite tableau = Cadre(titre, "pourcentages en ligne");
  tableau.colonnes.push_back({"Part"});
  auto rangee = tableau.rangees.begin();
  for (const std::size_t i : t.lignes) {
    for (const std::size_t j : t.colonnes)
      rangee->cellules.push_back({t.details.pourcentages(i, j), Unite::Pourcent, 1, t.AuDessus(i, j) ? "+" : "-"});
    rangee->cellules.push_back({100.0, Unite::Pourcent});
    (rangee++)->cellules.push_back({t.details.partsLignes[i], Unite::Pourcent, 1});
  }
  for (const std::size_t j : t.colonnes) rangee->cellules.push_back({t.details.partsColonnes[j], Unite::Pourcent, 1});
  rangee->cellules.push_back({100.0, Unite::Pourcent});
  rangee->cellules.push_back({100.0, Unite::Pourcent});
  return tableau;
}

TableauEdite Statistiques(const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  TableauEdite tableau;
  tableau.titres = Titres(titre, "statistiques");
  tableau.colonnes = {{"Valeur"}};
  tableau.rangees = {
      {"Khi-deux", {}, {{t.khi2, Unite::Nombre, 1}}},
      {std::string("Degrés de liberté"_w), {}, {{static_cast<double>(t.degres)}}},
      {std::string("Probabilité"_w), {}, {{1 - t.proba.p, Unite::Nombre, 3, std::string(Rogner(t.proba.marque))}}},
      {"PEM", {}, {{t.pem, Unite::Pourcent, 1}}}};
  return tableau;
}

}  // namespace

std::vector<TableauEdite> EnTableaux(const TableauTitre& titre) {
  if (titre.tableau.Vide()) return {};
  return {Effectifs(titre), Pourcentages(titre), Statistiques(titre)};
}

}  // namespace quelvar::crosstab
