// What a concordance is asked for: words, or the rows of a table with all the words that they stand for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "text/gestion/table.h"

namespace quelvar::text {

struct MotsCherches {
  std::string nom;                             // the word, or the label of the row
  std::vector<std::string> mots;               // whose lines are to be shown
  bool ligne = false;                          // of the table
  bool connus = true;                          // these are all the words of the row
  std::optional<std::int64_t> frequence = {};  // of the row, where it tells it
};

std::vector<MotsCherches> CherchesDesMots(const std::vector<std::string>& mots);
MotsCherches CherchesDeLaLigne(const LigneDeTable& ligne);
// The rows of the table that are asked for; or why there are none, in lines for the report, and where, unless their
// words do.
struct LignesCherchees {
  std::vector<MotsCherches> cherches{};
  std::vector<std::string> fautes{};
  Lieu ou{};
};
// The rows of these names in the table of the generic: a fault when there is no table, or not one row of a name.
LignesCherchees CherchesDesLignes(const Contexte& contexte, const std::vector<std::string>& noms);

// How many lines were found for each of the words that are looked for.
struct MotTrouve {
  std::string mot;
  std::int64_t lignes = 0;
};

// Whether these are the lines of that word: of two that share their ten columns they are the same.
bool EstLeMot(const MotTrouve& trouve, std::string_view mot);

// What must be said of the lines found beside those of the words: rows of the table that have more of them, or fewer.
std::vector<std::string> RemarquesSurLesLignes(const Contexte& contexte, const std::vector<MotsCherches>& cherches,
                                               const std::vector<MotTrouve>& trouves);

}  // namespace quelvar::text
