// The first factor of a table whatever the start of the power iteration: what the iteration has found is checked
// against a small space of directions, and gives way when the table has a larger singular value.
//
// The check is a Rayleigh-Ritz procedure on a space grown by residuals, with full orthogonalisation: block Lanczos
// without its recurrences, restarted thick (B. N. Parlett, "The Symmetric Eigenvalue Problem", 1980, chapters 11 and
// 13; E. R. Davidson, "The iterative calculation of a few of the lowest eigenvalues", J. Comput. Phys. 17, 1975,
// without preconditioner). It starts from the iteration's vector and from one that is orthogonal to no factor.
#pragma once

#include "factor/analyse/extraction.h"

namespace quelvar::factor {

// The first pair of singular vectors of the deviations: `trouvee` where its eigenvalue is the largest one to the
// printed digit, else the pair of the largest, with the sign that the start of the iteration gives it. `inertie` is the
// total one.
VecteursSinguliers PremierePaire(const Matrice& d, const Ecarts& ecarts, double inertie, VecteursSinguliers trouvee);

// Eigenvalues, in descending order, and eigenvectors (columns) of a symmetric matrix, by rotations (Jacobi).
struct ValeursEtVecteurs {
  std::vector<double> valeurs;
  Matrice vecteurs;
};
ValeursEtVecteurs DiagonaliserSymetrique(Matrice matrice);

}  // namespace quelvar::factor
