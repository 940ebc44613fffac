#include "crosstab/tableau/pemlocal.h"

#include <algorithm>
#include <cmath>

#include "core/panne/erreur.h"

namespace quelvar::crosstab {

namespace {

constexpr double kTheoriqueYates = 5;
constexpr double kResidu = 1e-12;    // share of the total below which a remainder of it is rounding
constexpr double kEcartNul = 3e-14;  // share of the theoretical count below which a deviation is rounding

// The four counts of the table: cell, rest of its column, rest of its row, all others.
double Khi2DeuxParDeux(double total, double a, double b, double n, Comptes comptes) {
  const double resteA = total - a;
  const double resteB = total - b;
  const double marges = a * b * resteA * resteB;
  if (comptes == Comptes::Entiers ? marges == 0 : std::min({a, b, resteA, resteB}) <= kResidu * total) return 0;
  const double croise = std::fabs(n * (total - a - b + n) - (b - n) * (a - n));
  const double plusPetit = std::min({a * b, a * resteB, resteA * b, resteA * resteB}) / total;
  if (plusPetit >= kTheoriqueYates) return total * croise * croise / marges;
  const double corrige = croise - total / 2;
  return corrige <= 0 ? 0 : total * corrige * corrige / marges;
}

}  // namespace

AttractionLocale PemLocal(double total, double totalLigne, double totalColonne, double effectif, Comptes comptes) {
  if (total == 0) throw Erreur(kDivisionParZero);
  AttractionLocale locale;
  const double theorique = totalLigne * totalColonne / total;
  locale.theorique = theorique;
  locale.ecart = effectif - theorique;
  const double possible = totalLigne < total - totalColonne ? 0 : totalLigne + totalColonne - total;
  const double marge = locale.ecart > 0 ? std::min(totalLigne, totalColonne) - theorique : possible - theorique;
  if (std::fabs(locale.ecart) > kEcartNul * std::fabs(theorique)) {
    if (marge == 0) throw Erreur(kDivisionParZero);
    locale.pem = 100 * locale.ecart / marge;
    if (locale.ecart < 0) locale.pem = -locale.pem;
  }
  locale.khi2 = Khi2DeuxParDeux(total, totalLigne, totalColonne, effectif, comptes);
  return locale;
}

}  // namespace quelvar::crosstab
