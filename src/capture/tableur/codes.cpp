#include "capture/tableur/codes.h"

#include <algorithm>

#include "core/chiffres/nombres.h"

namespace quelvar::capture {

std::optional<std::string> ChiffresDuCode(std::string_view cellule) {
  const std::size_t debut = cellule.find_first_not_of(" \t");
  if (debut == std::string_view::npos || EstDecimale(cellule)) return std::nullopt;
  const std::string_view nombre = cellule.substr(debut, cellule.find_last_not_of(" \t") - debut + 1);
  if (nombre.find_first_of(" \t") != std::string_view::npos || !EstNombre(nombre)) return std::nullopt;
  return Nombre(ArrondirPair(std::max(ValeurDe(nombre), 0.0)));
}

}  // namespace quelvar::capture
