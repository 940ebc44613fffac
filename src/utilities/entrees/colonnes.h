// Columns of a file as the user types them.
#pragma once

#include <cstdint>
#include <string_view>

namespace quelvar::utilities {

// A position or a width as typed; one beyond every line is the largest.
std::int64_t NombreTape(std::string_view texte);

}  // namespace quelvar::utilities
