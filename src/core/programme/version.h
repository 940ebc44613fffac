// The version of the program, as the welcome text, the about box and the banner of every report show it.
#pragma once

#include <string_view>

namespace quelvar {

inline constexpr std::string_view kVersion = "5.3";

}  // namespace quelvar
