#include "factor/analyse/produits.h"

#include <algorithm>

namespace quelvar::factor {

void LignesParVecteur(const Matrice& d, std::size_t debut, std::size_t fin, const double* __restrict b,
                      double* __restrict a) {
  constexpr std::size_t kLignes = 8;
  const std::size_t p = d.Colonnes();
  std::size_t i = debut;
  for (; i + kLignes <= fin; i += kLignes) {
    const double* lignes = d.Ligne(i).data();
    double sommes[kLignes] = {};
    for (std::size_t j = 0; j < p; ++j) {
#pragma GCC unroll 8  // else the sums stay in memory
      for (std::size_t k = 0; k < kLignes; ++k) sommes[k] += lignes[k * p + j] * b[j];
    }
    std::copy(sommes, sommes + kLignes, a + i);
  }
  for (; i < fin; ++i) {
    const double* ligne = d.Ligne(i).data();
    double somme = 0;
    for (std::size_t j = 0; j < p; ++j) somme += ligne[j] * b[j];
    a[i] = somme;
  }
}

void AjouterLignes(const Matrice& d, std::size_t debut, std::size_t fin, const double* __restrict a,
                   double* __restrict b) {
  const std::size_t p = d.Colonnes();
  std::size_t i = debut;
  for (; i + 4 <= fin; i += 4) {
    const double* l0 = d.Ligne(i).data();
    const double* l1 = l0 + p;
    const double* l2 = l1 + p;
    const double* l3 = l2 + p;
    const double a0 = a[i];
    const double a1 = a[i + 1];
    const double a2 = a[i + 2];
    const double a3 = a[i + 3];
    for (std::size_t j = 0; j < p; ++j) b[j] = (((b[j] + l0[j] * a0) + l1[j] * a1) + l2[j] * a2) + l3[j] * a3;
  }
  for (; i < fin; ++i) {
    const double* ligne = d.Ligne(i).data();
    for (std::size_t j = 0; j < p; ++j) b[j] += ligne[j] * a[i];
  }
}

void ProduitParColonnes(const Matrice& d, const double* a, double* b) {
  std::fill(b, b + d.Colonnes(), 0.0);
  AjouterLignes(d, 0, d.Lignes(), a, b);
}

void ProduitParLignes(const Matrice& d, const double* b, double* a) { LignesParVecteur(d, 0, d.Lignes(), b, a); }

}  // namespace quelvar::factor
