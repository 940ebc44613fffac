// The descriptor .DES of keyed entry: one line a question, its skip test, and the faults shown before entry starts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"

namespace quelvar {

// Characters that an alphabetic question is entered with at most.
inline constexpr int kLargeurAlphaAuPlus = 20;

// Jump of `nombre` questions when the value compares so.
struct SautConditionnel {
  char signe = '=';    // '<', '=' or '>'
  std::string valeur;  // compared value
  int nombre = 0;      // questions to jump
};

struct DescriptionDeQuestion {
  std::string nom;            // columns 1-7, padded on the right
  int nombre = 0;             // columns 8-9: code-max, or number of characters
  bool alphabetique = false;  // column 10 is not blank ("A"): alphabetic or long numeric
  bool numerique = false;     // "num" or "NUM": entered as a number of that many digits
  bool tabulation = false;    // "tab" or "TAB"
  std::optional<SautConditionnel> saut;
  std::string options;  // column 11 to the end as it stands

  int Largeur() const { return alphabetique ? nombre : LargeurDe(nombre); }
};

struct Descripteur {
  std::vector<DescriptionDeQuestion> descriptions;
  std::vector<std::string> fautes;  // one text a fault, in the order met
  int nombreFautes = 0;             // a record of another length counts for ten

  int LongueurEnregistrement() const;
};

// Reads the descriptor; the list ends at a line whose columns 1-4 are blank or hold "**". Questions behind a blank one
// are a fault. Raises kDepassementCapacite for a jump beyond a double, and the failures of LecteurLignes.
Descripteur LireDes(const Chemin& chemin);

// Adds the fault on the record length when the last line of the data file has another one.
void VerifierLongueur(Descripteur& descripteur, std::size_t longueurDerniereLigne);

// The faults as one text, separated by line ends.
std::string TexteDesFautes(const Descripteur& descripteur);

// A descriptor line as the form writes it: name, width, columns 10-14, options.
enum class GenreDescription { NumeriqueCourte, Alphabetique, NumeriqueLongue };
std::string LigneDescription(std::string_view nom, int nombre, GenreDescription genre, std::string_view options = {});

// Columns 8-9 of the question line that keyed entry generates, with its type mark when it needs one: " 9", "99" and
// "L3" for alphabetic widths 1 to 3, the width and "A" from 4 on; the code-max, or "L3" from 100 on, else.
std::string CodeMaxGenere(const DescriptionDeQuestion& description);

}  // namespace quelvar
