#include "regression/reglin/moindrescarres.h"

#include <cmath>
#include <limits>

#include "core/panne/erreur.h"
#include "crosstab/tableau/khi2.h"

namespace quelvar::regression {

namespace {

double Diviser(double numerateur, double denominateur) {
  if (denominateur == 0) throw Erreur(kDivisionParZero);
  return numerateur / denominateur;
}

struct Pivot {
  std::size_t ligne = 0;
  std::size_t colonne = 0;
  double grandeur = -1;
};

// Error that rounding may have left in the inverse of moments by one variable, as a share of it. A moment has lost
// about the root of the number of its terms in units of the last place; the inverse makes of them as much more as its
// diagonal element is larger than that of variables without any link. Source: N. J. Higham, "Accuracy and Stability of
// Numerical Algorithms" (2002), 4.2 for the sums, 14.4 for the inverse.
double ErreurRelative(const Matrice& moments, const Matrice& inverse, std::size_t variable) {
  const std::size_t constante = inverse.Lignes() - 1;
  return std::fabs(moments(variable, variable) * inverse(variable, variable)) *
         std::sqrt(moments(constante, constante)) * std::numeric_limits<double>::epsilon();
}

// Below so many units of the last place of the mean square of the explained values, with those that the sums have lost,
// a residual variance is nothing but rounding.
constexpr double kResteDArrondi = 64 * std::numeric_limits<double>::epsilon();

// From here on not one digit of the inverse can be told from rounding.
constexpr double kErreurToleree = 0.05;

// From here on a digit that is printed may be false: a parameter loses about two digits more than the inverse.
constexpr double kErreurVisible = 1e-7;

Pivot ChercherPivot(const Matrice& a, const std::vector<bool>& lignesPrises, const std::vector<bool>& colonnesPrises) {
  Pivot pivot;
  for (std::size_t i = 0; i < a.Lignes(); ++i)
    for (std::size_t j = 0; j < a.Lignes() && !lignesPrises[i]; ++j)
      if (!colonnesPrises[j] && std::fabs(a(i, j)) > pivot.grandeur) pivot = {i, j, std::fabs(a(i, j))};
  return pivot;
}

void Eliminer(Matrice& a, const Pivot& place) {
  const double pivot = a(place.ligne, place.colonne);
  for (double& x : a.Ligne(place.ligne)) x /= pivot;
  a(place.ligne, place.colonne) = 1 / pivot;
  for (std::size_t i = 0; i < a.Lignes(); ++i) {
    if (i == place.ligne) continue;
    const double facteur = a(i, place.colonne);
    for (std::size_t j = 0; j < a.Lignes(); ++j)
      if (j != place.colonne) a(i, j) -= facteur * a(place.ligne, j);
    a(i, place.colonne) = facteur / -pivot;
  }
}

}  // namespace

Moments::Moments(std::size_t explicatives)
    : ordre_(explicatives + 2), constantes_(ordre_, true), sommes_(ordre_ * ordre_) {}

void Moments::Ajouter(std::span<const double> valeurs) {
  if (variables_ < ordre_ - 1) ChercherLesConstantes(valeurs);
  for (std::size_t i = 0; i < ordre_; ++i) {
    double* ligne = sommes_.data() + i * ordre_;
    const double facteur = valeurs[i];
    for (std::size_t j = 0; j <= i; ++j) ligne[j] += facteur * valeurs[j];
  }
}

void Moments::ChercherLesConstantes(std::span<const double> valeurs) {
  if (premieres_.empty()) premieres_.assign(valeurs.begin(), valeurs.end());
  for (std::size_t i = 0; i < ordre_; ++i) {
    if (!constantes_[i] || valeurs[i] == premieres_[i]) continue;
    constantes_[i] = false;
    ++variables_;
  }
}

Matrice Moments::Symetrique() const {
  Matrice matrice(ordre_, ordre_, sommes_);
  for (std::size_t i = 0; i < ordre_; ++i)
    for (std::size_t j = i + 1; j < ordre_; ++j) matrice(i, j) = matrice(j, i);
  return matrice;
}

Dispersion DisperserMoments(const Moments& sommes) {
  const Matrice moments = sommes.Symetrique();
  const std::size_t constante = moments.Lignes() - 2;
  Dispersion dispersion;
  dispersion.constantes = sommes.Constantes();
  dispersion.individus = moments(constante, constante);
  dispersion.covariances = Matrice(moments.Lignes(), moments.Lignes());
  const double n = dispersion.individus;
  for (std::size_t i = 0; i < moments.Lignes(); ++i) {
    dispersion.moyennes.push_back(Diviser(moments(i, constante), n));
    for (std::size_t j = 0; j < moments.Lignes(); ++j)
      if (!dispersion.constantes[i] && !dispersion.constantes[j])
        dispersion.covariances(i, j) = (moments(i, j) - moments(i, constante) * moments(j, constante) / n) / n;
  }
  return dispersion;
}

std::optional<Matrice> InverseMatrice(const Matrice& matrice) {
  const std::size_t n = matrice.Lignes();
  Matrice a = matrice;
  std::vector<bool> lignesPrises(n);
  std::vector<bool> colonnesPrises(n);
  std::vector<std::size_t> colonneDe(n);
  std::vector<std::size_t> ligneDe(n);
  for (std::size_t tour = 0; tour < n; ++tour) {
    const Pivot pivot = ChercherPivot(a, lignesPrises, colonnesPrises);
    if (!(pivot.grandeur > 0)) return std::nullopt;
    lignesPrises[pivot.ligne] = colonnesPrises[pivot.colonne] = true;
    colonneDe[pivot.ligne] = pivot.colonne;
    ligneDe[pivot.colonne] = pivot.ligne;
    Eliminer(a, pivot);
  }
  Matrice inverse(n, n);
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = 0; j < n; ++j) inverse(colonneDe[i], ligneDe[j]) = a(i, j);
  return inverse;
}

std::optional<Matrice> InverseDesExplicatives(const Matrice& moments, const Dispersion& dispersion) {
  const std::size_t n = moments.Lignes() - 1;
  if (dispersion.individus < static_cast<double>(n)) return std::nullopt;
  Matrice bloc(n, n);
  for (std::size_t i = 0; i < n; ++i) {
    if (i + 1 < n && dispersion.constantes[i]) return std::nullopt;
    for (std::size_t j = 0; j < n; ++j) bloc(i, j) = moments(i, j);
  }
  std::optional<Matrice> inverse = InverseMatrice(bloc);
  for (std::size_t i = 0; i < n && inverse; ++i)
    if (!(ErreurRelative(moments, *inverse, i) < kErreurToleree)) inverse.reset();
  return inverse;
}

std::vector<std::size_t> VariablesQuiPerdent(const Matrice& moments, const Matrice& inverse) {
  std::vector<std::size_t> variables;
  for (std::size_t i = 0; i + 1 < inverse.Lignes(); ++i)
    if (ErreurRelative(moments, inverse, i) > kErreurVisible) variables.push_back(i);
  return variables;
}

AjustementLineaire AjusterMoindresCarres(const Matrice& moments, const Dispersion& dispersion, const Matrice& inverse) {
  const std::size_t p = moments.Lignes() - 2;
  const std::size_t y = p + 1;
  AjustementLineaire a;
  a.explicatives = p;
  a.individus = dispersion.individus;
  a.parametres.resize(p + 1);
  for (std::size_t i = 0; i <= p; ++i)
    for (std::size_t j = 0; j <= p; ++j) a.parametres[i] += inverse(i, j) * moments(j, y);
  a.totale = dispersion.covariances(y, y);
  for (std::size_t i = 0; i < p; ++i)
    for (std::size_t j = 0; j < p; ++j) a.expliquee += a.parametres[i] * a.parametres[j] * dispersion.covariances(i, j);
  a.residuelle = a.totale - a.expliquee;
  a.degres = a.individus - static_cast<double>(p) - 1;
  const double arrondi = kResteDArrondi * std::sqrt(a.individus) * moments(y, y) / a.individus;
  a.exact = !dispersion.constantes[y] && std::fabs(a.residuelle) < arrondi;
  return a;
}

void TesterAjustement(const Matrice& inverse, AjustementLineaire& a) {
  if (a.totale == 0) throw Erreur(kDivisionParZero);
  const std::size_t p = a.explicatives;
  a.f = Diviser(a.expliquee * a.degres, a.residuelle) / static_cast<double>(p);
  if (a.f < 0) throw Erreur(kArgumentIncorrect);
  for (std::size_t i = 0; i <= p; ++i) {
    const double variance = Diviser(a.residuelle * inverse(i, i) * a.individus, a.degres);
    if (variance < 0) throw Erreur(kArgumentIncorrect);
    a.ecartsTypes.push_back(std::sqrt(variance));
  }
}

double AjustementLineaire::R() const { return std::sqrt(R2()); }

double ProbabiliteF(double f, double degres1, double degres2) {
  if (!(f > 0)) throw Erreur(kArgumentIncorrect);
  const bool renverse = f < 1;
  const double z = std::fabs(renverse ? crosstab::EcartNormalDeF(1 / f, degres2, degres1)
                                      : crosstab::EcartNormalDeF(f, degres1, degres2));
  // Of Abramowitz and Stegun, 26.2.18.
  constexpr double kC1 = 0.196854;
  constexpr double kC2 = 0.115194;
  constexpr double kC3 = 0.000344;
  constexpr double kC4 = 0.019527;
  const double polynome = 1 + z * (kC1 + z * (kC2 + z * (kC3 + z * kC4)));
  const double p = 0.5 / (polynome * polynome * polynome * polynome);
  return renverse ? 1 - p : p;
}

std::string_view TexteDeF(double probabilite) {
  constexpr double kUneChanceSurDeux = 0.5;
  if (probabilite > kUneChanceSurDeux) return "non significatif";
  return probabilite > crosstab::kSeuilDe10PourCent ? " * *" : "* * *";
}

std::string_view MarqueT(double t) {
  // Bounds of the normal variable at 10, 5 and 1 %, on both sides.
  constexpr double kA10PourCent = 1.645;
  constexpr double kA5PourCent = 1.96;
  constexpr double kA1PourCent = 2.576;
  const double grandeur = std::fabs(t);
  if (grandeur < kA10PourCent) return "Non sign.";
  if (grandeur < kA5PourCent) return " *";
  return grandeur < kA1PourCent ? " * *" : " * * *";
}

}  // namespace quelvar::regression
