#include "utilities/tri/compte.h"

#include <algorithm>
#include <cmath>

#include "core/panne/erreur.h"

namespace quelvar::utilities {

double LongueursDeLignes::Moyenne() const {
  if (lignes == 0) throw Erreur(kDivisionParZero);
  return total / static_cast<double>(lignes);
}

double LongueursDeLignes::EcartType() const {
  const auto n = static_cast<double>(lignes);
  return std::sqrt(std::max(0.0, n * totalDesCarres - total * total)) / n;
}

}  // namespace quelvar::utilities
