// The label of a row in a table of words: code and word as the cutting made them, or what a user has written in their
// place.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quelvar::text {

// The file of the words behind the labels that no longer tell them.
inline constexpr std::string_view kMotsDesLignes = ".AGR";

// Whether the label begins with a code that the word behind it can have.
bool PorteUnCode(std::string_view intitule);

// The word of a row: what stands behind the code, without the star of an inverted theme; the whole label when it does
// not begin with a code that its word can have. Trimmed.
std::string_view MotDeLIntitule(std::string_view intitule);

// The words to look for in the files for such a label: its word, or those that a label of the user's own holds.
std::vector<std::string> MotsDeLIntitule(std::string_view intitule);

// The words that a user types or a label holds, parted by any of these characters.
std::vector<std::string> MotsSepares(std::string_view texte, std::string_view separateurs);

}  // namespace quelvar::text
