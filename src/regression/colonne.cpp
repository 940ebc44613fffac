#include "regression/colonne.h"

#include <algorithm>

namespace quelvar::regression {

void Colonne::Voir(double valeur) {
  constexpr int kDeReste = 40;
  const std::string texte = NombreFixe(valeur, kDeReste, decimales_);
  const auto fraction = static_cast<std::size_t>(decimales_ == 0 ? 0 : decimales_ + 1);
  const std::size_t blancs = texte.find_first_not_of(' ');
  const int necessaires = static_cast<int>(texte.size() - fraction - blancs) + (voisin_ == Voisin::Nombre ? 1 : 0);
  entiers_ = std::max(entiers_, necessaires);
}

std::string Figure(double valeur, int entiers, int decimales) {
  Colonne colonne(entiers, decimales);
  colonne.Voir(valeur);
  return colonne(valeur);
}

}  // namespace quelvar::regression
