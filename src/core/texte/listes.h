// Texts of a list as a sentence has them.
#pragma once

#include <string>
#include <string_view>

namespace quelvar {

// The texts behind each other, a comma and a blank between them; empty ones in front are passed over.
template <class Textes>
std::string Enumerer(const Textes& textes) {
  std::string liste;
  for (const std::string_view texte : textes) {
    if (!liste.empty()) liste += ", ";
    liste += texte;
  }
  return liste;
}

}  // namespace quelvar
