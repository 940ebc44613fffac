// Inversion of a table: rows become columns under a new generic, as a pair .BRT and .MOD or as a .TRG.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/programme/programme.h"

namespace quelvar::utilities {

struct OptionsInversion {
  bool trg = false;                // the table goes to .TRG instead
  std::string* nouveau = nullptr;  // if given, receives the generic that the session is to take
  bool remplacer = false;          // the files of the next generic may be replaced unasked

  bool operator==(const OptionsInversion&) const = default;
};

// What of the table the new one cannot hold as it stood.
struct ReservesDeLInversion {
  std::vector<std::string> cellules;     // remarks on those that count for 0 without being one
  std::vector<std::string> nomsRepetes;  // of several rows, each once: nothing tells their columns apart
  std::int64_t lignesLaissees = 0;       // behind those that are announced
};

// Report: generic and ".prt". The new generic is the next one by the rule of names; when it exists already, an input
// box proposes a free one. Qvr2.ini takes the new generic.
Fin Inverser(const Contexte& contexte, const OptionsInversion& options);

}  // namespace quelvar::utilities
