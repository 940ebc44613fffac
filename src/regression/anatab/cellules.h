// The cells that the tables of an analysis are made of, beside those that every table has.
#pragma once

#include "core/resultats/cellules.h"

namespace quelvar::regression {

inline Cellule CelluleDecimale(double valeur, int decimales) { return {.valeur = valeur, .decimales = decimales}; }

// A share or a difference of shares, in percentage points.
inline Cellule CelluleEnPoints(double valeur) { return {.valeur = valeur, .unite = Unite::Pourcent, .decimales = 1}; }
// The same with its sign behind it.
inline Cellule CellulePourcent(double valeur) {
  return {.valeur = valeur, .unite = Unite::Pourcent, .decimales = 1, .marque = "%"};
}

}  // namespace quelvar::regression
