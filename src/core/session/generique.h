// The name of a generic: the rule that gives a data set its next generation.
#pragma once

#include <string>
#include <string_view>

namespace quelvar {

// The generic with its last character stepped: digits and letters go up by one; "9", "Z", "z" and every character
// that is neither give "A". An empty generic has no next one and stays empty.
std::string GeneriqueSuivant(std::string_view generique);

}  // namespace quelvar
