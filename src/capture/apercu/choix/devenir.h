// What becomes of a column, in words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// "codes", "textes", "classes", "nombres", "multiple", "longs", "numero", "ecartee", "alphabetique", as .IMC has them.
std::string_view NomGenre(Genre genre);
// The same for the eye: "textes en codes", "nombres en classes"...
std::string_view LibelleGenre(Genre genre);

// What will become of the column, in one French sentence (code page).
std::string Devenir(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);

// True when every column is what the import of codes has always taken: nothing to look at, Enter goes on.
bool ToutEstCodes(const std::vector<ChoixDeColonne>& choix);

}  // namespace quelvar::capture
