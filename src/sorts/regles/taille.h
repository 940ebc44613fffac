// The instructions of a recoding that stand on the size line of a .POS: weighting, effective and filter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quelvar::sorts {

enum class SensFiltre { Aucun, Inclure, Exclure };

struct ConsignesTaille {
  std::string avant;         // the line before its first keyword, as it stands
  bool ponderation = false;  // POND
  std::string question;      // name behind "POND=", upper case; empty without an "="
  std::string commeTapee;    // the same as it stands
  bool maximum = false;      // MAX
  SensFiltre sens = SensFiltre::Aucun;
  bool deuxSens = false;  // INCL and EXCL on the same line
  std::string filtre;     // from INCL or EXCL to the end of the line, as it stands
};

ConsignesTaille LireConsignesTaille(std::string_view ligne);
// The keywords of a size line, as they stand; a view into it.
std::string_view MotsDeTaille(std::string_view ligne);

// One comparison of a filter, "NAM=code".
struct ElementFiltre {
  bool vide = false;
  bool egal = false;  // it has an "="
  std::string nom;    // as typed, without blanks
  std::string code;   // what stands behind the "="
};

struct ExpressionFiltre {
  bool sansBlanc = false;  // no blank behind the keyword: nothing else was read
  std::vector<ElementFiltre> elements;
};

// Reads a filter from its keyword on.
ExpressionFiltre LireFiltre(std::string_view filtre);

// What the weighting question is named without a name on the size line.
inline constexpr std::string_view kNomPonderation = "PON";

}  // namespace quelvar::sorts
