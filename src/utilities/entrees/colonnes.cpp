#include "utilities/entrees/colonnes.h"

#include <algorithm>

#include "core/chiffres/nombres.h"

namespace quelvar::utilities {

std::int64_t NombreTape(std::string_view texte) {
  constexpr double kAuDelaDeTout = 1e15;  // more lines or columns than any file has, still a whole number in a double
  return Entier64(std::clamp(ValeurDe(texte), -kAuDelaDeTout, kAuDelaDeTout));
}

}  // namespace quelvar::utilities
