// The name of a generic: what of a text it is, and the rule that gives a data set its next generation.
#pragma once

#include <string>
#include <string_view>

namespace quelvar {

// What stands before the first point: the generic that the name of a file, or a name that was typed, begins with.
std::string_view SansExtension(std::string_view nom);
// The generic that somebody has typed: the same without the blanks around it.
std::string GeneriqueSaisi(std::string_view saisi);

// What is said of an empty one.
inline constexpr std::string_view kPasDeNom = "Pas de nom : recommencer";
// Whether a file system can have files of that name: no part of a path, no control character.
bool PeutNommerDesFichiers(std::string_view generique);

// The generic with its last character stepped: digits and letters go up by one; "9", "Z", "z" and every character
// that is neither give "A". An empty generic has no next one and stays empty.
std::string GeneriqueSuivant(std::string_view generique);

}  // namespace quelvar
