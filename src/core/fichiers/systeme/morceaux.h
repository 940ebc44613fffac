// A file read from its beginning to its end in pieces, so that a long one takes no more memory than a short one.
#pragma once

#include <cstdint>
#include <string>

#include "core/fichiers/systeme/lecture.h"

namespace quelvar {

// Bytes of a piece: large enough for the disk, small beside the memory of any machine.
inline constexpr std::size_t kMorceau = std::size_t{1} << 20;

// Gives each piece, as a std::string, to `prendre`. Raises a failure of reading.
template <class Prendre>
void ParMorceaux(const Chemin& chemin, Prendre&& prendre) {
  std::uintmax_t place = 0;
  for (std::string octets; octets = LireMorceau(chemin, place, kMorceau), !octets.empty(); place += octets.size())
    prendre(octets);
}

}  // namespace quelvar
