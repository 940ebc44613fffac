// Whether the first row of a table holds its titles or is an individual like the others.
#pragma once

#include <string>
#include <vector>

namespace quelvar::capture {

struct PremiereLigne {
  bool titres = true;
  std::string doute;  // what makes it uncertain, as a sentence (code page); empty when nothing does
};

// From the first rows of the table, trimmed cells; at least one row.
PremiereLigne JugerPremiereLigne(const std::vector<std::vector<std::string>>& rangees);

}  // namespace quelvar::capture
