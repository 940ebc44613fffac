// The local PEM of a cell: the share of the largest deviation from independence that its margins allow, with the
// chi-square of the 2 x 2 table that the cell makes with everything else.
#pragma once

#include <cstdint>

#include "crosstab/tableau/khi2.h"

namespace quelvar::crosstab {

struct AttractionLocale {
  double theorique = 0;  // count of independence
  double ecart = 0;      // count less theoretical count
  double pem = 0;        // percent, from -100 to 100
  double khi2 = 0;       // of the 2 x 2 table, Yates's correction when a theoretical count is below 5
};

// Counts with weights are sums whose residues count as 0; whole ones are taken as they are, whatever a damaged table
// has.
enum class Comptes : std::uint8_t { Ponderes, Entiers };

// For a cell of `effectif` individuals out of `total`, in a row and a column of the totals given. Where a row or a
// column takes all or nothing the chi-square is 0.
// Raises kDivisionParZero for a total of 0, and for a deviation where the margins leave no room for one, as in a
// damaged table. The correction is that of F. Yates (Supplement to the Journal of the Royal Statistical Society, 1934).
AttractionLocale PemLocal(double total, double totalLigne, double totalColonne, double effectif,
                          Comptes comptes = Comptes::Ponderes);

// Chi-square of the 2 x 2 table above this is a cell marked as attracted or repelled at 10 %.
inline constexpr double kSeuilAttraction = kKhi2A10PourCent;

}  // namespace quelvar::crosstab
