#include "tables/diagonalisation.h"

#include <algorithm>

#include "core/programme/erreur.h"

namespace quelvar::tables {

namespace {

std::vector<double> PartsDuTotal(const std::vector<double>& totaux, double total) {
  std::vector<double> parts(totaux.size());
  std::transform(totaux.begin(), totaux.end(), parts.begin(), [=](double t) { return t / total; });
  return parts;
}

std::vector<std::size_t> Places(const std::vector<double>& scores, bool triees) {
  return crosstab::OrdreDesScores(triees ? scores : std::vector<double>(scores.size()));
}

}  // namespace

crosstab::Diagonale DiagonaleDe(const TableauCompte& table) {
  if (table.effectifs.Lignes() == 0 || table.effectifs.Colonnes() == 0) throw Erreur(kIndiceHorsSelection);
  const Matrice d =
      crosstab::EcartsEnProportions(table.effectifs, table.totauxLignes, table.totauxColonnes, table.total);
  const std::size_t i = d.Lignes() - 1;
  const std::size_t j = d.Colonnes() - 1;
  return crosstab::ChoisirDiagonale(d(0, 0), d(0, j), d(i, 0), d(i, j));
}

Diagonalisee Diagonalisation(const TableauCompte& table, OrdresTries tries) {
  const Matrice ecarts =
      crosstab::EcartsEnProportions(table.effectifs, table.totauxLignes, table.totauxColonnes, table.total);
  Diagonalisee resultat;
  resultat.facteur = crosstab::ExtrairePremierFacteur(
      ecarts, PartsDuTotal(table.totauxLignes, table.total), PartsDuTotal(table.totauxColonnes, table.total),
      {crosstab::PremierNonVide(table.totauxLignes), crosstab::PremierNonVide(table.totauxColonnes)});
  resultat.table = Reordonner(table, Places(resultat.facteur.lignes, tries.lignes),
                              Places(resultat.facteur.colonnes, tries.colonnes));
  resultat.maximum =
      crosstab::TableauMaximum(resultat.table.totauxLignes, resultat.table.totauxColonnes, DiagonaleDe(resultat.table));
  return resultat;
}

}  // namespace quelvar::tables
