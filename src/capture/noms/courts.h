// Three-character names of questions made from the titles of columns, all different.
#pragma once

#include <string>
#include <vector>

#include "core/enquete/colonnes.h"

namespace quelvar::capture {

// Characters of the name of a question.
inline constexpr std::size_t kNomCourtLePlusLong = kLargeurDeQuestion;

struct NomCourt {
  std::string nom;         // three columns, right-aligned
  bool distingue = false;  // it is not the one that the title alone gives
};

// A title, and its column in the source, from 1.
struct Titre {
  std::string intitule;
  std::size_t colonne = 0;
};

// The name that a title alone gives: its first three characters in three columns, "XXX" without a title.
std::string NomNaturel(const std::string& intitule);

// The name of each title: its first three characters, "XXX" without a title. Titles that would share a name (small and
// capital letters make no difference), and names that a .POS can't hold (blank, or with a sign of its own), get another
// one: the first three letters and digits of the title, else its first two with a digit or a letter, else any three
// that are free. Raises kIndiceHorsSelection with its column when none is left.
std::vector<NomCourt> NommerTitres(const std::vector<Titre>& titres);

}  // namespace quelvar::capture
