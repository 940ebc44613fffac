// First factor of the correspondence analysis of a table by reciprocal averaging, and the order it gives to rows and
// columns.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "crosstab/tableau/compte.h"

namespace quelvar::crosstab {

// Deviations from independence of the cells, in proportions of the total. Raises kDivisionParZero for a total of 0.
Matrice EcartsEnProportions(const Matrice& effectifs, const Marges& marges);

// Rounds after which a factor that does not settle is taken as it stands.
inline constexpr int kToursMaxDuFacteur = 100000;

// Where the averaging starts: the signs of the scores are those of that column, and the score of that row is the one
// that the stop test follows.
struct DepartDuFacteur {
  std::size_t ligne = 0;
  std::size_t colonne = 0;
};

// Scores are followed, and coordinates told, in thousandths.
inline constexpr double kEnMilliemes = 1000;

struct PremierFacteur {
  std::vector<double> lignes;    // coordinates
  std::vector<double> colonnes;  // coordinates
  double valeurPropre = 0;       // first eigenvalue, the square of the last norm
};

// Scores of the rows, 1 or -1 at first, give those of the columns and these give the rows again, each time divided by
// the weight (unless it is 0) and by the norm (unless it is 0), until the score of the row that is followed, in
// thousandths, rounds to the same integer twice, or after `toursMax` rounds; the coordinates are the scores times the
// last norm. Sums run in index order. Raises kIndiceHorsSelection for a table without rows or columns,
// kArgumentIncorrect when negative weights give no norm, kDepassementCapacite when a score is beyond a double. Source:
// M. O. Hill, "Correspondence Analysis: A Neglected Multivariate Method", Applied Statistics 23 (1974); there the
// scores are centred at each round, here the deviations take the trivial factor out beforehand.
PremierFacteur ExtrairePremierFacteur(const Matrice& ecarts, std::span<const double> poidsLignes,
                                      std::span<const double> poidsColonnes, DepartDuFacteur depart,
                                      int toursMax = kToursMaxDuFacteur);

// Ranks of the scores, counted from 0, in ascending or descending order; equal scores keep theirs.
std::vector<std::size_t> OrdreDesScores(std::span<const double> scores, bool decroissant = false);

}  // namespace quelvar::crosstab
