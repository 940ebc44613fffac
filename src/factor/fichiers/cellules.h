// The cells of a row of a table .BRT, or of its logical coding .CDG, behind the name that stands in front.
#pragma once

#include <cstddef>
#include <string_view>

#include "core/enquete/colonnes.h"
#include "core/texte/texte.h"

namespace quelvar::factor {

// The cell of that rank, from 0, as far as the row goes.
inline std::string_view CelluleDeLigne(std::string_view ligne, std::size_t rang, std::size_t largeur) {
  return Milieu(ligne, kLargeurDeModalite + 1 + rang * largeur, largeur);
}

}  // namespace quelvar::factor
