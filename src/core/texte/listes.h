// Texts of a list as a sentence has them.
#pragma once

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

namespace quelvar {

// The texts behind each other, a comma and a blank between them, `dernier` before the last one; empty ones in front are
// passed over.
template <class Textes>
std::string Enumerer(const Textes& textes, std::string_view dernier = ", ") {
  std::string liste;
  std::size_t reste = std::size(textes);
  for (const std::string_view texte : textes) {
    --reste;
    if (!liste.empty()) liste += reste == 0 ? dernier : ", ";
    liste += texte;
  }
  return liste;
}

}  // namespace quelvar
