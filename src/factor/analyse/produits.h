// The two products of a table and a vector, on a run of rows: several rows at once, for the processor, with each sum in
// index order all the same.
#pragma once

#include <cstddef>

#include "core/calcul/matrice.h"

namespace quelvar::factor {

// a(i) = row i of d times b (one value a column), for the rows from `debut` to before `fin`; a has one value a row.
void LignesParVecteur(const Matrice& d, std::size_t debut, std::size_t fin, const double* b, double* a);

// b += the rows from `debut` to before `fin`, each times its a(i).
void AjouterLignes(const Matrice& d, std::size_t debut, std::size_t fin, const double* a, double* b);

// b = transpose(d) a and a = d b, over all rows.
void ProduitParColonnes(const Matrice& d, const double* a, double* b);
void ProduitParLignes(const Matrice& d, const double* b, double* a);

}  // namespace quelvar::factor
