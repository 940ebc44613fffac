// The text that a user brings: read whole, and never taken for what it is not when it is in UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar::text {

// The bytes of the file in the code page. One in UTF-8 is converted when the user agrees in a box, and the report tells
// the characters that the code page lacks; otherwise the run stops (kArretAnnonce). Raises a failure of reading.
std::string PrendreTexte(const Contexte& contexte, const Chemin& chemin, std::string_view nom, Rapport& rapport);

}  // namespace quelvar::text
