// Characters that somebody types and that no file of a survey can hold.
#pragma once

#include <string>
#include <string_view>

namespace quelvar {

// What is wrong with a text typed in UTF-8 whose first character outside the code page would become "?"; empty when it
// has none. The character stands in the sentence as NomDepuisUtf8 writes it, so that VersUtf8 shows it.
std::string RefusHorsPage(std::string_view utf8);

}  // namespace quelvar
