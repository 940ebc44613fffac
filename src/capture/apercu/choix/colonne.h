// The choice that says what becomes of a column of an imported table.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/observation/faits.h"
#include "capture/noms/courts.h"
#include "core/enquete/posfile.h"

namespace quelvar::capture {

enum class Genre {
  Codes,         // a question, as it stands
  Textes,        // texts to codes, with their labels
  Classes,       // numbers to classes
  Nombres,       // numbers kept, in the generic followed by N
  Multiple,      // a question of 1 and 0 for each answer
  Longs,         // texts to generic.TXT
  Numero,        // number of the individual: in .DAT, no question
  Ecartee,       // left aside
  Alphabetique,  // a question of texts, which stay as they are
};

enum class Ordre { Alphabetique, Frequence, Donne };

// Classes of numbers: no more than there are codes of one character, "1" to "9" and "A" to "Z".
inline constexpr int kClassesAuPlus = kPremierCodeDouble - 1;
// Equal groups of them.
inline constexpr int kGroupesAuMoins = 2;
inline constexpr int kGroupesAuPlus = kClassesAuPlus;

struct ChoixDeColonne {
  std::string intitule;  // of the column, as FaitsDeColonne has it
  Genre genre = Genre::Ecartee;
  std::string nom;  // three characters, different from all others; empty for what gives no question and no variable

  // Textes; of Codes, the texts that stand for the codes 1, 2...
  Ordre ordre = Ordre::Alphabetique;
  std::vector<std::string> textes;       // Donne: the texts of the codes 1, 2...; those not named come behind
  std::vector<std::string> nonReponses;  // texts that count as code 0; also for Codes, Classes and Nombres

  // Classes: bounds (a class goes from one to below the next), or the number of equal groups when there are none
  std::vector<double> bornes;
  int groupes = 0;

  // Multiple
  char liste = '\0';                  // sign between the answers of one cell; 0 for one answer a column
  std::vector<std::string> reponses;  // of one answer a column: the texts that count as 1

  bool fondus = false;  // Textes: those that differ by case, accents or blanks only have one code

  std::string libelle{};  // of the question, where it is not the title
  // Codes: the code-max that the question has at least; Alphabetique: the columns of its field.
  // kCodeMaxL3 for "L3".
  int codeMax = 0;
  bool aDroite = false;  // Alphabetique: the texts end with their field

  bool operator==(const ChoixDeColonne&) const = default;
};

// Whether the texts of a choice hold that one.
inline bool EstParmi(const std::vector<std::string>& textes, std::string_view texte) {
  return std::ranges::find(textes, texte) != textes.end();
}

}  // namespace quelvar::capture
