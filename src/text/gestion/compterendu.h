// The lines of the report on a merge of rows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quelvar::text {

// What a merge has done.
struct Regroupement {
  struct Ligne {
    std::string nom;  // its frequency
    std::string intitule;
  };
  std::vector<Ligne> lignes;    // that it has taken
  int elargissements = 0;       // columns by which every cell of the table was widened for the sums
  std::string intitule;         // of the new row
  double frequence = 0;         // of the new row
  std::int64_t plafonnees = 0;  // rows whose frequency is the greatest that their columns hold, and may be greater
};

std::vector<std::string> CompteRenduDe(const Regroupement& regroupement);

}  // namespace quelvar::text
