// The text of a Burt table that SAS has written: its encoding, its rows, and what they add up to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// What the letters of a source come to in the code page.
struct Conversion {
  bool utf8 = false;
  std::int64_t accents = 0;  // characters of several bytes
  std::int64_t perdus = 0;   // of these, the ones that the code page lacks
  std::int64_t ligne = 0;    // the first line with one of them
};
// Raises the failures of LecteurLignes.
Conversion ExaminerConversion(const Chemin& source);

// The words of a row that are its counts, and the label before them.
struct RangeeDeBurt {
  std::string_view intitule;
  std::vector<std::string_view> effectifs;
};

// The rows of a source as texts of the code page, those that hold nothing but blanks left out.
class LecteurDeBurt {
 public:
  LecteurDeBurt(const Chemin& chemin, bool utf8) : lecteur_(chemin), utf8_(utf8) {}
  // The next row, as a view that lives until the next call; false at the end. Raises the failures of LecteurLignes.
  bool Lire(std::string_view& ligne);
  // The same taken to pieces, its last `nombre` words being the counts. Raises kIndiceHorsSelection when it has not as
  // many, kIncompatibiliteType when one of them is not a number, with their place.
  bool Lire(std::size_t nombre, RangeeDeBurt& rangee);

 private:
  LecteurLignes lecteur_;
  bool utf8_;
  bool premiere_ = true;
  std::string convertie_;
};

struct FaitsBurt {
  std::size_t rangees = 0;
  std::size_t largeur = 0;  // characters of the longest count
  double diagonale = 0;     // individuals times questions
  double total = 0;         // of all the cells
  std::vector<std::string> intitules;

  // Number of questions, if the table is one of a whole number of them.
  std::optional<double> Questions() const;
};
// Raises kFinDeFichierDepassee for a source without rows, and what LecteurDeBurt raises.
FaitsBurt ExaminerBurt(const Chemin& source, bool utf8);

}  // namespace quelvar::capture
