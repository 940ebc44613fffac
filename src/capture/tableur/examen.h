// The facts that one reading of a spreadsheet saved as text gives of its columns.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// What the import knows of a column.
struct FaitsColonne {
  std::size_t largeur = 0;        // in .DAT: of its longest cell; of its code-max for a column of codes
  double codeMax = 0;             // largest value of its cells
  std::int64_t negatives = 0;     // cells below 0, which count as 0
  std::int64_t decimales = 0;     // cells with a decimal sign in a column of codes, which count as 0
  bool texte = false;             // a cell that is neither empty nor a number
  std::int64_t ligneDuTexte = 0;  // of the source, where the first one stands
  std::size_t largeurLue = 0;     // of the longest cell as it stands
  std::size_t largeurCode = 0;    // the same with numbers brought to their digits
};

// Facts of a whole source.
struct FaitsTableur {
  std::int64_t individus = 0;    // rows that hold something, without the title line
  std::int64_t lignesVides = 0;  // rows that hold nothing; blank lines at the end of the file are not among them
  char separateur = ';';
  bool utf8 = false;                   // the lines are to be converted on reading
  std::vector<std::string> intitules;  // of the title line; as many as columns, the missing ones empty
  std::vector<FaitsColonne> colonnes;
};

// Examines the source in one reading, or in two when its first lines mislead on the separator or the encoding.
// Raises kFinDeFichierDepassee when a title line is expected and the file is empty, a sentence (kDepassementCapacite)
// for a line of more than kColonnesAuPlus cells, and the failures of LecteurLignes, all with their place.
FaitsTableur ExaminerTableur(const Chemin& source, bool avecIntitules);

}  // namespace quelvar::capture
