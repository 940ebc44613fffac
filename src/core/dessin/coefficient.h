// How much a button changes a graph: the coefficient that its form offers the choice of.
#pragma once

#include <cstdint>

namespace quelvar {

enum class Coefficient : std::uint8_t { Faible, Moyen, Fort };  // BtFaible, BtMoyen, BtFort

// What one press multiplies a size by, or divides it by.
constexpr double FacteurDeTaille(Coefficient coefficient) {
  switch (coefficient) {
    case Coefficient::Faible: return 1.05;
    case Coefficient::Fort: return 1.5;
    case Coefficient::Moyen: break;
  }
  return 1.2;
}

// What one press moves a text by, points of the page.
constexpr double PasDeTexte(Coefficient coefficient) {
  switch (coefficient) {
    case Coefficient::Faible: return 1;
    case Coefficient::Fort: return 20;
    case Coefficient::Moyen: break;
  }
  return 5;
}

}  // namespace quelvar
