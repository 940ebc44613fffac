// What the next program of a generic does with the record of a commit that was cut: it is finished or undone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/releve.h"

namespace quelvar {

// Puts the new file of an entry in place, or takes the former one away (Efface); nothing for Allonge, whose bytes are
// not in a file of their own. Raises a failure of writing.
void PoserFichier(const EntreeDeReleve& entree);

// To be called by the holder of the generic. Returns lines for the report, in the code page; none when nothing was
// repaired. Raises a failure of writing when a commit can be neither finished nor undone.
std::vector<std::string> ReprendreGenerique(const Chemin& repertoire, std::string_view generique);

}  // namespace quelvar
