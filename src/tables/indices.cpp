#include "tables/indices.h"

#include <algorithm>
#include <cmath>

#include "core/programme/erreur.h"

namespace quelvar::tables {

namespace {

std::optional<double> Quotient(double dividende, double diviseur) {
  return diviseur == 0 ? std::nullopt : std::optional<double>(dividende / diviseur);
}

}  // namespace

IndicesGlobaux CalculerIndices(const crosstab::TableauCompte& table, const crosstab::SommesDEcarts& observe,
                               const crosstab::SommesDEcarts& maximum) {
  IndicesGlobaux indices;
  indices.observe = observe;
  indices.maximum = maximum;
  indices.plusPetiteDimension = std::min(table.effectifs.Lignes(), table.effectifs.Colonnes());
  indices.effectif = table.marges.total;
  indices.pem = Quotient(100 * observe.positifs, maximum.positifs);
  indices.khi2SurMaximum = Quotient(100 * observe.khi2, maximum.khi2);
  const double possible = table.marges.total * (static_cast<double>(indices.plusPetiteDimension) - 1);
  indices.rapportCramer = Quotient(100 * observe.khi2, possible);
  if (const std::optional<double> carre = Quotient(observe.khi2, possible)) {
    if (*carre < 0) throw Erreur(kArgumentIncorrect);
    indices.vCramer = std::sqrt(*carre);
  }
  return indices;
}

PartDuFacteur CalculerPart(double valeurPropre, double khi2, double effectif) {
  if (khi2 == 0) throw Erreur(kDivisionParZero);
  return {100 * valeurPropre / (khi2 / effectif), effectif * valeurPropre, khi2};
}

}  // namespace quelvar::tables
