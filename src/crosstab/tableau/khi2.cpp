#include "crosstab/tableau/khi2.h"

#include <array>
#include <cmath>
#include <utility>

#include "core/programme/erreur.h"

namespace quelvar::crosstab {

namespace {

constexpr double kKhi2Nul = 0.0000001;
constexpr double kDegresInfinis = 10000000000;

// Area under the normal curve from minus infinity to z.
double FonctionNormale(double z) {
  static constexpr std::array<double, 5> coefficients = {0.3194, -0.3566, 1.7815, -1.8213, 1.3303};
  const double t = 1 / (1 + 0.2316419 * std::fabs(z));
  double somme = 0;
  double puissance = 1;
  for (const double coefficient : coefficients) {
    puissance *= t;
    somme += coefficient * puissance;
  }
  const double queue = 0.39894228 * std::exp(-z * z / 2) * somme;
  const double signe = z > 0 ? 1 : z < 0 ? -1 : 0;
  return 0.5 + signe * (0.5 - queue);
}

// Distribution function of an F ratio.
double FonctionF(double f, double numerateur, double denominateur) {
  double a = numerateur;
  double b = denominateur;
  const bool inverse = f < 1;
  const double g = inverse ? 1 / f : f;
  if (inverse) std::swap(a, b);
  const double u = 2 / (9 * a);
  const double w = 2 / (9 * b);
  double z = ((1 - w) * std::pow(g, 0.33333333) - (1 - u)) / std::sqrt(w * std::pow(g, 0.666667) + u);
  if (b <= 3) z *= 1 + 0.08 * z * z * z * z / (b * b * b);
  const double p = FonctionNormale(z);
  return inverse ? 1 - p : p;
}

std::string_view Etoiles(double depassement) {
  if (depassement > 0.1) return "ns";
  if (depassement > 0.05) return "* ";
  return depassement > 0.01 ? "**" : "***";
}

}  // namespace

ProbabiliteKhi2 ProbaKhi2(double degres, double khi2) {
  if (std::isnan(khi2)) throw Erreur(kArgumentIncorrect);
  if (std::fabs(khi2) < kKhi2Nul) return {0, "ns"};
  if (khi2 < 0) return {-1, "Erreur"};
  if (std::isinf(khi2)) throw Erreur(kDepassementCapacite);
  if (degres == 0) throw Erreur(kDivisionParZero);
  if (!(degres > 0)) throw Erreur(kArgumentIncorrect);
  const double p = FonctionF(khi2 / degres, degres, kDegresInfinis);
  return {p, Etoiles(1 - p)};
}

}  // namespace quelvar::crosstab
