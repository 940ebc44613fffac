// What a run is going to take of the memory and of the disk, asked before it starts when it is much of what is free.
#pragma once

#include <cstdint>

#include "core/programme/programme.h"

namespace quelvar {

struct Place {
  std::uint64_t memoire = 0;  // bytes
  std::uint64_t disque = 0;   // bytes in the working directory
};

// What is free now; a system that does not tell has room for everything.
Place PlaceLibre(const Chemin& repertoire);

// Goes on at once when the run takes less than a quarter of what is free, or little. Otherwise asks, naming the bytes;
// any answer but yes, and none, stops the run with a sentence (kArretAnnonce) before anything is written. `demander`
// asks whatever is free.
void ExigerPlace(const Contexte& contexte, Rapport& rapport, const Place& besoin, bool demander = false);

}  // namespace quelvar
