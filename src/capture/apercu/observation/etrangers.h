// Texts with characters that the code page has not: what stood in the file for a cell with "?", so that two texts that
// would become one are found.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/observation/faits.h"

namespace quelvar::capture {

class TextesEtrangers {
 public:
  // A cell and what it was in the file, on that line; beyond kValeursGardees different ones no more are kept.
  void Voir(std::string_view cellule, std::string_view brute, std::int64_t ligne);
  bool Vide() const { return brutes_.empty(); }
  // The texts of the code page that several texts of the file have become. `liste` separates the answers of a cell, 0:
  // the cells are compared. `valeurs` are all cells of the column.
  std::vector<TexteConfondu> Confondus(char liste, const std::vector<ValeurComptee>& valeurs) const;

 private:
  struct Brute {
    std::int64_t ligne = 0;
    std::int64_t effectif = 0;
  };
  std::map<std::string, std::map<std::string, Brute>> brutes_;  // by cell
  std::size_t nombre_ = 0;
};

}  // namespace quelvar::capture
