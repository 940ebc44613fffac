#include "core/resultats/tete.h"

#include <algorithm>
#include <cstddef>

namespace quelvar {

std::string TeteADroite(std::string_view coin, const std::vector<Colonne>& colonnes, const FormeEnRangees& forme,
                        int titreUsuel) {
  std::string ligne(coin);
  for (std::size_t j = 0; j < colonnes.size(); ++j) {
    const std::string& titre = colonnes[j].titre;
    const PlaceEnRangee& place = forme.places[std::min(j, forme.places.size() - 1)];
    const int enPlus = std::max(0, static_cast<int>(titre.size()) - titreUsuel);
    ligne += place.avant;
    ligne += CadreDroit(titre, place.entiers + enPlus);
  }
  return ligne;
}

}  // namespace quelvar
