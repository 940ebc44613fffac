#include "tables/diagonalisation.h"

#include <string>

namespace quelvar::tables {

namespace {

std::vector<std::size_t> Places(const std::vector<double>& scores, bool triees) {
  return crosstab::OrdreDesScores(triees ? scores : std::vector<double>(scores.size()));
}

}  // namespace

Diagonalisee Diagonalisation(const crosstab::TableauCompte& table, OrdresTries tries) {
  Diagonalisee resultat;
  resultat.facteur = crosstab::FacteurDe(table, crosstab::Bords::Tous);
  resultat.table = crosstab::Reordonner(table, Places(resultat.facteur.lignes, tries.lignes),
                                        Places(resultat.facteur.colonnes, tries.colonnes));
  resultat.maximum = crosstab::MaximumDe(resultat.table, crosstab::Bords::Tous);
  return resultat;
}

TableauEdite TableDeLAxe(std::span<const std::string_view> intitules, std::span<const double> coordonnees) {
  TableauEdite axe;
  for (const std::string_view intitule : intitules) axe.colonnes.push_back({std::string(intitule)});
  Rangee& rangee = axe.rangees.emplace_back();
  for (const double coordonnee : coordonnees) rangee.cellules.push_back({crosstab::kEnMilliemes * coordonnee});
  return axe;
}

}  // namespace quelvar::tables
