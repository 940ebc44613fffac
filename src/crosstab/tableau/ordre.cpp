#include "crosstab/tableau/ordre.h"

#include <optional>

#include "core/panne/erreur.h"

namespace quelvar::crosstab {

namespace {

// First place of a total above 0, behind code 0 when that does not count and is not alone; the place where the search
// begins when there is none.
std::size_t PlaceDeDepart(const std::vector<double>& totaux, Bords bords) {
  const std::size_t depart = bords == Bords::CodesPleins && totaux.size() > 1 ? 1 : 0;
  for (std::size_t i = depart; i < totaux.size(); ++i)
    if (totaux[i] > 0) return i;
  return depart;
}

struct Extremes {
  std::size_t premier;
  std::size_t dernier;
};

std::optional<Extremes> ExtremesDe(const std::vector<double>& totaux, const std::vector<std::size_t>& rangs,
                                   Bords bords) {
  if (bords == Bords::Tous) return Extremes{0, totaux.size() - 1};
  std::optional<Extremes> extremes;
  for (const std::size_t place : PlacesPleines(totaux)) {
    if (rangs[place] == 0) continue;
    if (!extremes) extremes = Extremes{place, place};
    extremes->dernier = place;
  }
  return extremes;
}

}  // namespace

PremierFacteur FacteurDe(const TableauCompte& table, Bords bords, int toursMax) {
  const Marges& marges = table.marges;
  return ExtrairePremierFacteur(EcartsEnProportions(table.effectifs, marges), Parts(marges.lignes, marges.total),
                                Parts(marges.colonnes, marges.total),
                                {PlaceDeDepart(marges.lignes, bords), PlaceDeDepart(marges.colonnes, bords)}, toursMax);
}

Diagonale DiagonaleDe(const TableauCompte& table, Bords bords) {
  const Marges& marges = table.marges;
  if (marges.lignes.empty() || marges.colonnes.empty()) throw Erreur(kIndiceHorsSelection);
  if (marges.total == 0) throw Erreur(kDivisionParZero);
  const auto lignes = ExtremesDe(marges.lignes, table.rangsLignes, bords);
  const auto colonnes = ExtremesDe(marges.colonnes, table.rangsColonnes, bords);
  if (!lignes || !colonnes) return Diagonale::Autre;
  const auto ecart = [&](std::size_t i, std::size_t j) {
    return EcartEnProportions(table.effectifs(i, j), marges, i, j);
  };
  return ChoisirDiagonale(ecart(lignes->premier, colonnes->premier), ecart(lignes->premier, colonnes->dernier),
                          ecart(lignes->dernier, colonnes->premier), ecart(lignes->dernier, colonnes->dernier));
}

Matrice MaximumDe(const TableauCompte& table, Bords bords) {
  return TableauMaximum(table.marges.lignes, table.marges.colonnes, DiagonaleDe(table, bords));
}

}  // namespace quelvar::crosstab
