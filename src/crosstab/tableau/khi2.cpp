#include "crosstab/tableau/khi2.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/panne/erreur.h"

namespace quelvar::crosstab {

namespace {

constexpr double kKhi2Nul = 0.0000001;
constexpr double kDegresInfinis = 10000000000;
constexpr std::size_t kColonnesDeMarque = 2;  // that the reports keep for it; three stars take one more

// Area under the normal curve from minus infinity to z.
double FonctionNormale(double z) {
  // Of Abramowitz and Stegun, 26.2.17.
  static constexpr std::array<double, 5> coefficients = {0.3194, -0.3566, 1.7815, -1.8213, 1.3303};
  constexpr double kEchelle = 0.2316419;
  constexpr double kDensiteEnZero = 0.39894228;  // 1 over the root of 2 pi
  const double t = 1 / (1 + kEchelle * std::fabs(z));
  double somme = 0;
  double puissance = 1;
  for (const double coefficient : coefficients) {
    puissance *= t;
    somme += coefficient * puissance;
  }
  const double queue = kDensiteEnZero * std::exp(-z * z / 2) * somme;
  const double signe = z > 0 ? 1 : z < 0 ? -1 : 0;
  return 0.5 + signe * (0.5 - queue);
}

// Distribution function of an F ratio.
double FonctionF(double f, double numerateur, double denominateur) {
  constexpr PuissancesDeF kPuissances = {0.33333333, 0.666667};  // as the reports have them
  if (f < 1) return 1 - FonctionNormale(EcartNormalDeF(1 / f, denominateur, numerateur, kPuissances));
  return FonctionNormale(EcartNormalDeF(f, numerateur, denominateur, kPuissances));
}

}  // namespace

int ClasseKhi2(double khi2, Borne borne) {
  int classe = 0;
  for (const double seuil : {kKhi2A10PourCent, kKhi2A5PourCent, kKhi2A1PourCent})
    classe += khi2 > seuil || (borne == Borne::Comprise && khi2 == seuil) ? 1 : 0;
  return classe;
}

int ClasseDuDepassement(double depassement) {
  int classe = 0;
  for (const double seuil : {kSeuilDe10PourCent, kSeuilDe5PourCent, kSeuilDe1PourCent})
    classe += depassement > seuil ? 0 : 1;
  return classe;
}

std::string_view MarqueDeClasse(int classe, std::size_t colonnes) {
  static constexpr std::array<std::string_view, 4> kMarques = {"ns ", "*  ", "** ", "***"};
  const std::string_view marque = kMarques.at(static_cast<std::size_t>(classe));
  return marque.substr(0, std::max(std::min(marque.find(' '), marque.size()), colonnes));
}

double EcartNormalDeF(double f, double numerateur, double denominateur, const PuissancesDeF& puissances) {
  constexpr double kCorrection = 0.08;
  constexpr double kAssezDeDegres = 4;
  const double u = 2 / (9 * numerateur);
  const double w = 2 / (9 * denominateur);
  const double z =
      ((1 - w) * std::pow(f, puissances.tiers) - (1 - u)) / std::sqrt(w * std::pow(f, puissances.deuxTiers) + u);
  if (denominateur >= kAssezDeDegres) return z;
  return z * (1 + kCorrection * z * z * z * z / (denominateur * denominateur * denominateur));
}

ProbabiliteKhi2 ProbaKhi2(double degres, double khi2) {
  if (std::isnan(khi2)) throw Erreur(kArgumentIncorrect);
  if (std::fabs(khi2) < kKhi2Nul) return {0, "ns"};
  if (khi2 < 0) return {-1, "Erreur"};
  if (std::isinf(khi2)) throw Erreur(kDepassementCapacite);
  if (degres == 0) throw Erreur(kDivisionParZero);
  if (!(degres > 0)) throw Erreur(kArgumentIncorrect);
  const double p = FonctionF(khi2 / degres, degres, kDegresInfinis);
  return {p, MarqueDeClasse(ClasseDuDepassement(1 - p), kColonnesDeMarque)};
}

}  // namespace quelvar::crosstab
