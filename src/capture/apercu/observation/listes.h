// Cells that hold several answers: which sign stands between them.
#pragma once

#include <string_view>
#include <vector>

#include "capture/apercu/observation/faits.h"

namespace quelvar::capture {

// The sign between the answers of the cells, 0 when they hold none; fills the answers with their counts.
char SigneDeListe(const std::vector<ValeurComptee>& valeurs, std::vector<ValeurComptee>& elements);

// The answers of one cell, trimmed, those that are empty left out. `voir` gets each of them.
template <typename Voir>
void SeparerListe(std::string_view cellule, char signe, Voir&& voir) {
  while (true) {
    const std::size_t fin = cellule.find(signe);
    std::string_view element = cellule.substr(0, fin);
    while (!element.empty() && (element.front() == ' ' || element.front() == kInsecable)) element.remove_prefix(1);
    while (!element.empty() && (element.back() == ' ' || element.back() == kInsecable)) element.remove_suffix(1);
    if (!element.empty()) voir(element);
    if (fin == std::string_view::npos) return;
    cellule.remove_prefix(fin + 1);
  }
}

}  // namespace quelvar::capture
