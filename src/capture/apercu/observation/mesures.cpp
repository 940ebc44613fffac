#include "capture/apercu/observation/mesures.h"

#include <algorithm>
#include <cmath>

#include "capture/apercu/observation/faits.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

void Mesures::Voir(const NombreDeCellule& lu) {
  const std::string normal = lu.Normalise();
  const double valeur = ValeurDe(normal);
  const bool entier = lu.EstEntier();
  Joindre({valeur, valeur, 1, entier && std::abs(valeur) > kPlusGrandCode ? 1 : 0, lu.signe != '\0' ? 1 : 0,
           lu.ValeurEntiere() ? 0 : 1, valeur < 0 ? 1 : 0, static_cast<int>(lu.decimales.size()), normal.size()});
}

void Mesures::Joindre(const Mesures& autres) {
  if (autres.nombre == 0) return;
  minimum = nombre > 0 ? std::min(minimum, autres.minimum) : autres.minimum;
  maximum = nombre > 0 ? std::max(maximum, autres.maximum) : autres.maximum;
  nombre += autres.nombre;
  larges += autres.larges;
  avecDecimales += autres.avecDecimales;
  fractions += autres.fractions;
  negatives += autres.negatives;
  decimales = std::max(decimales, autres.decimales);
  largeur = std::max(largeur, autres.largeur);
}

}  // namespace quelvar::capture
