// The triangular file .TRG: title, names of the three vertices, and points of three percentages.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "core/enquete/trgfile.h"

namespace quelvar::tables {

struct PointTriangle {
  std::string nom;                         // 4 characters
  std::string intitule;                    // trimmed; the name when there is none
  std::array<float, kSommetsTrg> parts{};  // percent, in the order of the vertices
  std::string reste;                       // the line behind the name, as it stands
};

// What a user should know of the points: how many, and where the first one stands.
struct PointsEnFaute {
  std::size_t nombre = 0;
  std::string premier;
};

struct FichierTrg {
  std::string titre;
  std::array<std::string, kSommetsTrg> sommets;
  std::vector<PointTriangle> points{};
  PointsEnFaute inegaux{};     // percentages that make neither 100 nor 0
  PointsEnFaute negatifs{};    // percentages below 0
  PointsEnFaute illisibles{};  // percentages that are not numbers
};

// Reads up to a line that is blank, has four blanks for a name, or holds "**". Raises kFinDeFichierDepassee for less
// than four lines, kDepassementCapacite for a percentage beyond a single, and the failures of LecteurLignes.
FichierTrg LireTrg(const Chemin& chemin);

}  // namespace quelvar::tables
