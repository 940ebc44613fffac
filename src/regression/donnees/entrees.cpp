#include "regression/donnees/entrees.h"

namespace quelvar::regression {

EntreesDeRegression TrouverEntrees(const Contexte& contexte) {
  return {contexte.Chercher(".CDG"), contexte.Chercher(".MOD")};
}

void Fautifs::Noter(std::int64_t rang, std::int64_t cites, const Lieu& ou) {
  if (++nombre == 1) premier = ou;
  if (nombre <= cites) rangs.push_back(rang);
}

}  // namespace quelvar::regression
