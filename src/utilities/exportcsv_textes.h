// What the cells of an exported survey no longer tell by themselves, and the choices by which an import finds it again.
#pragma once

#include <string>
#include <vector>

namespace quelvar::utilities {

// A question as it is exported.
struct QuestionEnTextes {
  std::string nom;
  std::string titre;                // of its column
  std::vector<std::string> textes;  // of its codes, from 0 on; none for a question of texts
};

// The questions of which two codes are written alike, counted with the first of them; empty when there is none.
std::string CodesConfondus(const std::vector<QuestionEnTextes>& questions);

// The bytes of an .IMC by which an import gives the questions their names and codes again. A question of texts goes to
// .TXT; one whose codes have labels and go beyond 99 is left to what the import proposes.
std::string ChoixDeLImport(const std::vector<QuestionEnTextes>& questions);

}  // namespace quelvar::utilities
