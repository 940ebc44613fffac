// Columns of a file as the user types them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quelvar::utilities {

// A position or a width as typed; one beyond every line is the largest.
std::int64_t NombreTape(std::string_view texte);

// Why what was typed for an option is no position or width, in the words of a value that an option does not take: it is
// no number, or one below the least that can be. Empty when it is one.
std::string RefusDeColonne(std::string_view option, std::string_view texte, std::int64_t minimum);

}  // namespace quelvar::utilities
