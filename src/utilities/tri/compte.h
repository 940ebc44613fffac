// What a sort of a file has done: the field that was asked for, and the lengths of the lines that were written.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

#include "utilities/tri/chaines.h"

namespace quelvar::utilities {

// No shortest line is found above it.
inline constexpr std::size_t kPlusCourteAuDepart = 10000;

struct LongueursDeLignes {
  std::size_t lignes = 0;
  std::size_t minimum = kPlusCourteAuDepart;
  std::size_t maximum = 0;
  double total = 0;
  double totalDesCarres = 0;

  void Compter(std::size_t longueur) {
    ++lignes;
    minimum = std::min(minimum, longueur);
    maximum = std::max(maximum, longueur);
    total += static_cast<double>(longueur);
    totalDesCarres += static_cast<double>(longueur) * static_cast<double>(longueur);
  }
  // Raises kDivisionParZero without a line.
  double Moyenne() const;
  // Of the population. The sums are whole numbers, exact up to 2^53.
  double EcartType() const;
};

struct CompteDeTri {
  bool trie = false;     // the lines were put in order
  std::string position;  // of the field, as typed
  std::string largeur;   // of the field, as typed
  SensDeTri sens = SensDeTri::Croissant;
  bool rogne = false;  // trailing blanks have gone
  LongueursDeLignes longueurs;
};

}  // namespace quelvar::utilities
