// The global indices of association of a counted table.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "core/resultats/tableau.h"
#include "crosstab/tableau/statistiques.h"

namespace quelvar::tables {

// One whose divisor is 0 has no value. The sums are in counts.
struct IndicesGlobaux {
  crosstab::SommesDEcarts observe;
  crosstab::SommesDEcarts maximum;
  std::size_t plusPetiteDimension = 0;
  double effectif = 0;
  std::optional<double> pem;             // percent of the sum of positive deviations of the maximum table
  std::optional<double> khi2SurMaximum;  // percent of the chi-square of the maximum table
  std::optional<double> rapportCramer;   // percent
  std::optional<double> vCramer;         // from 0 to 1
};

// V and its square, the ratio: H. Cramér, "Mathematical Methods of Statistics" (1946), 21.9. Raises kArgumentIncorrect
// for a negative ratio, which only negative counts can give.
IndicesGlobaux CalculerIndices(const crosstab::TableauCompte& table, const crosstab::SommesDEcarts& observe,
                               const crosstab::SommesDEcarts& maximum);

// The indices with their words, one a row; what has no value leaves its cell empty.
std::vector<Rangee> RangeesDesIndices(const IndicesGlobaux& indices);

// What the first factor takes of the chi-square of a table.
struct PartDuFacteur {
  double duPhi2 = 0;  // percent
  double khi2 = 0;
  double khi2Total = 0;
};
// Raises kDivisionParZero for a chi-square of 0.
PartDuFacteur CalculerPart(double valeurPropre, double khi2, double effectif);
std::vector<Rangee> RangeesDeLaPart(const PartDuFacteur& part);

}  // namespace quelvar::tables
