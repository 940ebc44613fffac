// Office Open XML sheets (ECMA-376): a part for each sheet, one for the texts that cells share, one for the formats.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "capture/classeur/archive.h"
#include "capture/classeur/rangees.h"

namespace quelvar::capture::classeur {

struct FeuilleXlsx {
  std::string nom;     // UTF-8
  std::string partie;  // of the archive
  bool cachee = false;
};

struct ClasseurXlsx {
  std::vector<FeuilleXlsx> feuilles;
  std::string textes;   // part of the shared texts; empty when there is none
  std::string formats;  // part of the formats; empty when there is none
  bool depuis1904 = false;
};

bool EstXlsx(const Archive& archive);
ClasseurXlsx OuvrirXlsx(const Archive& archive);
// The rows of the sheet of that rank, from 0.
void LireXlsx(const Archive& archive, const ClasseurXlsx& classeur, std::size_t rang, Rangees& rangees);

}  // namespace quelvar::capture::classeur
