// Small tables written out in a test, with their margins.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <random>
#include <vector>

#include "core/calcul/matrice.h"

namespace essai {

inline quelvar::Matrice MatriceDe(std::initializer_list<std::initializer_list<double>> lignes) {
  quelvar::Matrice matrice(lignes.size(), lignes.size() == 0 ? 0 : lignes.begin()->size());
  std::size_t i = 0;
  for (const auto& ligne : lignes) std::copy(ligne.begin(), ligne.end(), matrice.Ligne(i++).begin());
  return matrice;
}

// Whole counts from 0 to 29, the same for the same seed.
inline quelvar::Matrice MatriceAuHasard(std::size_t lignes, std::size_t colonnes, unsigned graine) {
  std::mt19937 hasard(graine);
  quelvar::Matrice matrice(lignes, colonnes);
  for (double& cellule : matrice.Valeurs()) cellule = static_cast<double>(hasard() % 30);
  return matrice;
}

}  // namespace essai
