// Factors of a table of counts: deviations from independence, and one factor after the other by power iteration with
// deflation. Functions on numbers, without file or report.
//
// Correspondence analysis weighs rows and columns by their margins (J.-P. Benzécri, "L'analyse des données", vol. 2,
// 1973); principal components of the deviations do not weigh them. The iteration is the power method on the pair of
// singular vectors (G. H. Golub, C. F. Van Loan, "Matrix Computations", section on the power method); it differs from
// the textbook in its stop test, which follows one row only.
//
// Every sum runs in index order in double precision, so that a result is the same on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/calcul/matrice.h"

namespace quelvar::factor {

enum class TypeAnalyse { Acp = 1, Afc = 2 };

inline constexpr int kDecimalesDesValeursPropres = 6;  // as they are printed

// What is known of the rows or of the columns: active ones first, then supplementary ones.
struct MargesDesEcarts {
  std::vector<double> profil;   // margin / N
  std::vector<double> poids;    // the same in correspondence analysis, 1 in principal components
  std::vector<double> inertie;  // in units of the total inertia
};

struct Ecarts {
  double effectif = 0;     // N, the total of the active cells
  double phiDeux = 0;      // sum of d^2/e over the active cells
  double sommeCarres = 0;  // sum of d^2
  std::size_t temoin = 0;  // row of the largest |d|, whose coordinate the stop test follows
  MargesDesEcarts lignes;
  MargesDesEcarts colonnes;

  double Inertie(TypeAnalyse type) const { return type == TypeAnalyse::Afc ? phiDeux : sommeCarres; }
};

// Sum of all cells.
double EffectifTotal(const Matrice& actives);

// Replaces the counts (active rows x active columns) by d = f - p(i) p(j). Raises kDepassementCapacite when the total,
// which must not be 0, is beyond a double.
Ecarts CalculerEcarts(Matrice& actives, TypeAnalyse type);

// The same for supplementary columns (active rows x supplementary columns); their margins go behind the active ones.
void CalculerEcartsColonnesSup(Matrice& colonnes, TypeAnalyse type, Ecarts& ecarts);
// The same for one supplementary row over the active columns; deviations are computed in double and kept in single.
void CalculerEcartsLigneSup(std::span<float> ligne, TypeAnalyse type, Ecarts& ecarts);

// Row of the largest |d|, the first one.
std::size_t LigneTemoin(const Matrice& d);

struct VecteursSinguliers {
  std::vector<double> lignes;    // a, over the active rows
  std::vector<double> colonnes;  // b, over the active columns
  double valeur = 0;             // s
  std::int64_t tours = 0;
  bool converge = true;  // false when the bound of rounds has stopped the iteration
};

// The bound that stops the iteration on a table that does not converge: from 50,000 rounds on a large table to a
// million on a small one. Two eigenvalues that differ by one part in a thousand take about ten thousand.
std::int64_t ToursAuPlus(const Matrice& d);

// First pair of singular vectors of the deviations. Rounds go on while the change of 1,000,000 a(temoin), or the change
// of that change, is above 1. `suivre` is told the number of each round. Raises kArgumentIncorrect when weights below 0
// leave no norm.
VecteursSinguliers Iterer(const Matrice& d, const Ecarts& ecarts, std::int64_t toursAuPlus,
                          const std::function<void(std::int64_t)>& suivre);

// Coordinates b of supplementary columns, and a of one supplementary row, in the unit of the singular vectors; `rang`
// is the index of the row among all rows.
std::vector<double> ProjeterColonnesSup(const Matrice& colonnes, const Ecarts& ecarts,
                                        const VecteursSinguliers& vecteurs);
double ProjeterLigneSup(std::span<const float> ligne, const Ecarts& ecarts, const VecteursSinguliers& vecteurs,
                        std::size_t rang);

// A factor to be taken off the deviations: coordinates F of all rows, G of all columns, singular value.
struct Composante {
  std::span<const double> f;
  std::span<const double> g;
  double valeur = 0;
};

// Value of the factor in a cell: w(i) w(j) F(i) G(j) / s; 0 when s is 0.
inline double Reconstituer(const Ecarts& ecarts, const Composante& composante, std::size_t i, std::size_t j) {
  if (composante.valeur == 0) return 0;
  return ecarts.lignes.poids[i] * ecarts.colonnes.poids[j] * composante.f[i] * composante.g[j] / composante.valeur;
}

// Takes the factor off a block of cells whose first column is `colonne` in the order of all columns (0: active cells).
void Deflater(Matrice& d, const Ecarts& ecarts, const Composante& composante, std::size_t colonne = 0);
void DeflaterLigneSup(std::span<float> ligne, const Ecarts& ecarts, const Composante& composante, std::size_t rang);

// Contribution to the factor, and squared cosine, of an element of weight w and coordinate F, in per mille: 999 above
// 1000, else the nearest integer. 0 when the divisor is 0. Raises kDepassementCapacite below -32768.
std::int16_t Contribution(double poids, double coordonnee, double valeurPropre);
std::int16_t Cos2(double poids, double coordonnee, double inertie);

}  // namespace quelvar::factor
