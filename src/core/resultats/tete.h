// A heading whose titles stand to the right of their places, for frames that print it as a line of their own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/resultats/rangees.h"
#include "core/resultats/tableau.h"

namespace quelvar {

// The corner, then each title right-aligned in the place of its column, behind what stands in front of that place.
// Places are made for titles of `titreUsuel` characters: a longer one keeps the blanks before it and moves those
// behind.
std::string TeteADroite(std::string_view coin, const std::vector<Colonne>& colonnes, const FormeEnRangees& forme,
                        int titreUsuel);

}  // namespace quelvar
