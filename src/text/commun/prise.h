// What a run does with the text that a user brings: it asks before it converts one, and tells what was lost.
#pragma once

#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar::text {

// The bytes of the file in the code page. One in UTF-8 or UTF-16 is converted when the user agrees in a box, and the
// report tells the characters that the code page lacks; otherwise the run stops (kArretAnnonce). Raises a failure of
// reading.
std::string PrendreTexte(const Contexte& contexte, const Chemin& chemin, std::string_view nom, Rapport& rapport);

}  // namespace quelvar::text
