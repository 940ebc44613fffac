// What the cells of an exported survey no longer tell by themselves, and the choices by which an import finds it again.
#pragma once

#include <string>
#include <vector>

#include "core/enquete/posfile.h"

namespace quelvar::utilities {

// A question as it is exported.
struct QuestionEnTextes {
  std::string nom;
  std::string titre;                // of its column
  std::string intitule;             // as the .POS has it
  int codeMax = 0;                  // as the .POS has it, 999 for "L3"
  std::vector<std::string> textes;  // of its codes, from 0 on; none for a question of texts
  bool aDroite = false;             // its texts end with their field
};

// The labels of a .MOD, trimmed, by question and code (up to 99); empty without one.
struct IntitulesDesCodes {
  std::vector<std::vector<std::string>> parQuestion;
  std::vector<std::string>
      partages;  // labelled names of which it cannot be told whose they are: every code has that label
};
// Raises a sentence (kIncompatibiliteType) when two lines of the list of modalities give a code different labels;
// behind the end mark of the list the first line counts. Raises the failures of LecteurLignes.
IntitulesDesCodes LireIntitulesDesCodes(const Chemin& mod, const FichierPos& pos);

// The questions of which two codes are written alike, counted with the first of them; empty when there is none.
std::string CodesConfondus(const std::vector<QuestionEnTextes>& questions);

// What of the survey a spreadsheet does not hold, even with its choices; empty for nothing. Raises the failures of
// LecteurLignes.
std::string CeQuiNePassePas(std::string_view generique, const FichierPos& pos, const Chemin& mod);

// The bytes of an .IMC by which an import gives the questions their names, widths and codes again.
std::string ChoixDeLImport(const std::vector<QuestionEnTextes>& questions);

}  // namespace quelvar::utilities
