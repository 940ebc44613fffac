// What a run does with the text that a user brings: it asks before it converts one, and tells what was lost.
#pragma once

#include <string>
#include <string_view>

#include "core/programme/programme.h"
#include "text/commun/source.h"

namespace quelvar::text {

// The bytes of the file `nom`, which was read, in the code page. One in UTF-8 or UTF-16 is converted when the user
// agrees in a box, and the report tells the characters that the code page lacks; otherwise the run stops
// (kArretAnnonce).
std::string PrendreTexte(Rapport& rapport, const Dialogue& ecran, std::string_view nom, SourceDeTexte source);

}  // namespace quelvar::text
