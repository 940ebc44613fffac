#include "crosstab/tableau/maximum.h"

#include <vector>

namespace quelvar::crosstab {

Diagonale ChoisirDiagonale(double premierePremiere, double premiereDerniere, double dernierePremiere,
                           double derniereDerniere) {
  return dernierePremiere + premiereDerniere < premierePremiere + derniereDerniere ? Diagonale::Principale
                                                                                   : Diagonale::Autre;
}

Matrice TableauMaximum(std::span<const double> totauxLignes, std::span<const double> totauxColonnes,
                       Diagonale diagonale) {
  std::vector<double> resteLignes(totauxLignes.begin(), totauxLignes.end());
  std::vector<double> resteColonnes(totauxColonnes.begin(), totauxColonnes.end());
  Matrice maximum(resteLignes.size(), resteColonnes.size());
  std::size_t i = 0;
  std::size_t rang = 0;  // of the column, from the side where the diagonal starts
  while (i < resteLignes.size() && rang < resteColonnes.size()) {
    const std::size_t j = diagonale == Diagonale::Principale ? rang : resteColonnes.size() - 1 - rang;
    const double charge = resteLignes[i] <= resteColonnes[j] ? resteLignes[i] : resteColonnes[j];
    maximum(i, j) = charge;
    resteLignes[i] -= charge;
    resteColonnes[j] -= charge;
    if (resteLignes[i] == 0) ++i;
    if (resteColonnes[j] == 0) ++rang;
  }
  return maximum;
}

}  // namespace quelvar::crosstab
