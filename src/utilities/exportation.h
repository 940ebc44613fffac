// Export of a zone: the columns of a text file between two positions, or all the others, as a new file.
#pragma once

#include <string>

#include "core/programme/programme.h"

namespace quelvar::utilities {

struct OptionsExportation {
  std::string a;                // file to read
  std::string c;                // file to write
  std::string debut;            // first position of the zone, as typed
  std::string fin;              // last position of the zone, as typed
  bool complementaire = false;  // every column but those of the zone

  bool operator==(const OptionsExportation&) const = default;
};

// The first thing that a launch lacks, in the words of the form; empty when nothing is missing.
std::string ManqueExportation(const Contexte& contexte, const OptionsExportation& options);

// Report: generic and ".prt". A position beyond a line stops the run at that line, the lines before it being written;
// a zone that ends more than one column before it starts, or starts before column 1, is kArgumentIncorrect and writes
// nothing.
Fin Exporter(const Contexte& contexte, const OptionsExportation& options);

}  // namespace quelvar::utilities
