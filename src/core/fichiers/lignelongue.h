// A line that no text file has: what every reader of lines says of it.
#pragma once

#include <string_view>

namespace quelvar {

// Raises kMemoireInsuffisante with a sentence: the file `nom` has a line beyond LecteurLignes::kLigneAuPlus bytes.
[[noreturn]] void RefuserLigneTropLongue(std::string_view nom);

}  // namespace quelvar
