// The cells that tables are made of most often.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "core/resultats/tableau.h"

namespace quelvar {

// A whole number that counts nothing: a rank, a position, a code.
template <class N>
requires std::integral<N> || std::floating_point<N> Cellule CelluleEntiere(N valeur) {
  return {.valeur = static_cast<double>(valeur)};
}

template <class N>
requires std::integral<N> || std::floating_point<N> Cellule CelluleEffectif(N valeur) {
  return {.valeur = static_cast<double>(valeur), .unite = Unite::Effectif};
}

// A text in the place of a value.
inline Cellule CelluleTexte(std::string_view texte) { return {.marque = std::string(texte)}; }

}  // namespace quelvar
