// A heading of two lines: each name is broken over the lines, in places that stand above the columns of the table.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelvar {

inline constexpr std::size_t kLignesDeTete = 2;
inline constexpr int kHorsDeLaLigne = -1;

// Where a name stands: the columns of each line in front of it, and those that its upper part has at most.
struct PlaceDeNom {
  std::array<int, kLignesDeTete> debuts = {kHorsDeLaLigne, kHorsDeLaLigne};
  int coupe = 0;  // of a name on both lines
};
constexpr PlaceDeNom EnHaut(int debut) { return {.debuts = {debut, kHorsDeLaLigne}}; }
constexpr PlaceDeNom EnBas(int debut) { return {.debuts = {kHorsDeLaLigne, debut}}; }
constexpr PlaceDeNom SurLesDeux(int enHaut, int enBas, int coupe) { return {{enHaut, enBas}, coupe}; }

struct FormeADeuxLignes {
  PlaceDeNom coin = {};
  std::vector<PlaceDeNom> noms = {};                 // one a column; none: the heading has one line
  std::array<int, kLignesDeTete> colonnes = {0, 0};  // of each line, at least
  bool fixe = false;                                 // the names stay where they are when columns widen
};

// A name that is on one line stands there whole, one that is on none is left out; on both, the upper one has the words
// that its columns hold, or as much of a longer word with a hyphen behind, and the lower one the rest. What neighbours
// begin with in the same place stands above them once, and a line without names and columns is empty. `enPlus`: columns
// that each column of the table has more than its form, by which the names move.
std::array<std::string, kLignesDeTete> TeteADeuxLignes(std::string_view coin, std::span<const std::string_view> noms,
                                                       std::span<const int> enPlus, const FormeADeuxLignes& forme);

}  // namespace quelvar
