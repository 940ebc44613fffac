// Numbers to classes: their limits and labels.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// A code that is made, and its label.
struct Etiquette {
  int code = 0;
  std::string intitule;
  std::int64_t effectif = -1;  // -1: not counted
};

// Lower limits of the classes but the first, and a label for each class with its individuals not counted.
struct Classes {
  std::vector<double> limites;
  std::vector<Etiquette> etiquettes;
};
Classes ClassesSelonBornes(const std::vector<double>& bornes, const FaitsDeColonne& colonne);
// The bounds of n groups of as many individuals as ties allow.
std::vector<double> BornesDeGroupes(std::vector<double> valeurs, int groupes);

// The labels of the classes of a choice ("15-24"); empty without bounds, and for equal groups of more numbers than are
// kept.
std::vector<std::string> LibellesDesClasses(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);

}  // namespace quelvar::capture
