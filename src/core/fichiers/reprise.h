// What the next program of a generic does with the record of a commit: a cut one is finished or undone, results that
// the machine has lost are set aside.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/releve.h"

namespace quelvar {

struct Reprise {
  std::vector<std::string> recit;           // lines for the report, in the code page; empty when nothing was repaired
  std::vector<EntreeDeReleve> anterieures;  // results that the machine may still lose
};

// To be called by the holder of the generic. Raises 57, 61, 70 or 75 when it can be neither finished nor undone.
Reprise ReprendreGenerique(const Chemin& repertoire, std::string_view generique);

}  // namespace quelvar
