// The position files of a fusion: those beside A and B, and the one that describes C.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::utilities {

// Name of the .POS beside a file: its name less the last three letters, and "POS".
std::string NomDuPos(std::string_view fichier);

struct PosDeFusion {
  std::string nom;  // of the file, without directory
  std::string titre;
  LigneTaille taille;                  // of the file that it stands beside; empty when it can't be read
  std::vector<std::string> questions;  // the lines up to the end of the list
  std::vector<std::string> suite;      // the end mark and what stands behind it
};

// Nothing when the file is missing or has no question.
std::optional<PosDeFusion> LirePosDeFusion(const Chemin& repertoire, std::string_view fichier);

// Names that questions of A and of B share, each with the blanks around it left out.
std::vector<std::string> NomsCommuns(const PosDeFusion& a, const PosDeFusion& b);
// Rank of the first question, from 1, whose name, position or code-max is not the same in both; 0 when all are.
std::size_t PremiereDifference(const PosDeFusion& a, const PosDeFusion& b);

// The questions of A, then those of B with their positions moved. Raises kDepassementCapacite, with its
// place, for a position beyond four columns.
std::vector<std::string> PosCoteACote(const PosDeFusion& a, const PosDeFusion& b, std::size_t decalage,
                                      std::int64_t individus);
// The questions of A and what stands behind them.
std::vector<std::string> PosALaSuite(const PosDeFusion& a, std::int64_t individus);

}  // namespace quelvar::utilities
