#include "tables/diagonalisation.h"

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

}  // namespace quelvar::tables
