// Least squares on moments: sums of products, covariances, inversion, decomposition of the variance and its tests.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/calcul/matrice.h"

namespace quelvar::regression {

// Sums of the products of the values of each individual, for the explanatory variables, the constant and the explained
// variable in this order.
class Moments {
 public:
  explicit Moments(std::size_t explicatives);
  void Ajouter(std::span<const double> valeurs);
  // The whole symmetric matrix.
  Matrice Symetrique() const;
  // Which values were the same for every individual: what sums leave of their dispersion is nothing but rounding.
  const std::vector<bool>& Constantes() const { return constantes_; }
  std::size_t Ordre() const { return ordre_; }

 private:
  void ChercherLesConstantes(std::span<const double> valeurs);

  std::size_t ordre_;
  std::vector<double> premieres_;  // values of the first individual
  std::vector<bool> constantes_;
  std::size_t variables_ = 0;   // that are no constants; at the end all but the one
  std::vector<double> sommes_;  // row i holds the products of value i with values 0 to i
};

// What the moments say of the variables; the constant stands at the last but one place, the explained one at the last.
struct Dispersion {
  double individus = 0;
  std::vector<double> moyennes;
  Matrice covariances;           // divided by the number of individuals; 0 for a value that is always the same
  std::vector<bool> constantes;  // those values
};

// Raises kDivisionParZero without individuals.
Dispersion DisperserMoments(const Moments& moments);

// Inverse by Gauss-Jordan steps with complete pivoting: each round takes the element of largest absolute value among
// the rows and columns not used yet, of equal ones the first. No value when a pivot is 0, or is nothing but what
// rounding left of the diagonal element that stood in its row.
// Source: A. Ralston and P. Rabinowitz, "A First Course in Numerical Analysis" (1978), chapter 9.
std::optional<Matrice> InverseMatrice(const Matrice& matrice);

// Inverse of the moments of the explanatory variables and the constant. No value when a variable is always the same,
// when there are fewer individuals than parameters, when a pivot is 0 or when rounding is all that keeps one from it.
std::optional<Matrice> InverseDesExplicatives(const Matrice& moments, const Dispersion& dispersion);

// Ranks of the explanatory variables that make the inverse lose so many digits that those printed of the parameters are
// not all sure: variables far from 0 for their spread, or nearly a combination of others.
std::vector<std::size_t> VariablesQuiPerdent(const Matrice& moments, const Matrice& inverse);

struct AjustementLineaire {
  std::size_t explicatives = 0;
  double individus = 0;
  std::vector<double> parametres;   // of the explanatory variables, then the constant
  std::vector<double> ecartsTypes;  // standard errors, in the same order
  double totale = 0;                // variances, divided by the number of individuals
  double expliquee = 0;
  double residuelle = 0;
  double degres = 0;   // of the residual
  bool exact = false;  // the variables explain all but what rounding leaves
  double f = 0;

  // Share of the variance that the variables explain, and its root. The variance is not 0.
  double R2() const { return expliquee / totale; }
  double R() const;
};

// Fits by the inverse of the moments: parameters and variances.
// Source: N. R. Draper and H. Smith, "Applied Regression Analysis" (1998), chapters 5 and 6.
AjustementLineaire AjusterMoindresCarres(const Matrice& moments, const Dispersion& dispersion, const Matrice& inverse);
// Adds the F ratio and the standard errors. Raises kDivisionParZero where a division has 0 below, as for an explained
// variable that is always the same, kArgumentIncorrect for a variance that rounding has made negative.
void TesterAjustement(const Matrice& inverse, AjustementLineaire& a);

// Upper tail of an F ratio. Raises kArgumentIncorrect for a negative ratio.
// Source: M. Abramowitz and I. A. Stegun, "Handbook of Mathematical Functions", 26.6.15 and 26.2.18, the correction for
// few degrees of freedom after T. L. Kelley; here the ratio is turned over below 1.
double ProbabiliteF(double f, double degres1, double degres2);

// The words of a significance: by these bounds "non significatif" is said above one half only.
std::string_view TexteDeF(double probabilite);
// "Non sign.", " *", " * *", " * * *" by the absolute value of a Student ratio.
std::string_view MarqueT(double t);

}  // namespace quelvar::regression
