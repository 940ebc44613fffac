// A line that no text file has: what every reader of lines says of it.
#pragma once

#include <string_view>

namespace quelvar {

// Raises kMemoireInsuffisante with a sentence: the file `nom` has a line beyond LecteurLignes::kLigneAuPlus bytes.
[[noreturn]] void RefuserLigneTropLongue(std::string_view nom);

// The same for the bytes of a file that are read at once: raised when one of their lines is beyond it.
void ExigerLignesCourtes(std::string_view octets, std::string_view nom);

}  // namespace quelvar
