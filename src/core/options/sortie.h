// The option by which the tables of a program go to a file besides its report.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/resultats/tableau.h"

namespace quelvar {

// Its words.
inline std::vector<std::pair<std::string, SortieDeTableaux>> MotsDesSorties() {
  return {{"rapport", SortieDeTableaux::Aucune},
          {"html", SortieDeTableaux::Html},
          {"tsv", SortieDeTableaux::Tsv},
          {"csv", SortieDeTableaux::Csv}};
}
inline constexpr std::string_view kAideSortie =
    "les tableaux aussi dans un fichier, sous le nom du rapport et .html, .tsv ou .csv";

}  // namespace quelvar
