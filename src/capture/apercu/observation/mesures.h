// Sizes and signs of the numbers of a column.
#pragma once

#include <cstddef>
#include <cstdint>

#include "capture/apercu/octets/cellule.h"

namespace quelvar::capture {

struct Mesures {
  double minimum = 0, maximum = 0;
  std::int64_t nombre = 0;
  std::int64_t larges = 0;  // whole ones of more than three digits
  std::int64_t avecDecimales = 0;
  std::int64_t fractions = 0;  // among these, with decimals other than 0
  std::int64_t negatives = 0;
  int decimales = 0;        // most digits behind the sign
  std::size_t largeur = 0;  // of the longest, written with a decimal point and no groups

  void Voir(const NombreDeCellule& lu);
  void Joindre(const Mesures& autres);
};

}  // namespace quelvar::capture
