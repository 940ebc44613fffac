// A line of `.DAT` as the cutting of a text into words leaves it.
#pragma once

#include <string>
#include <string_view>

#include "support/programme.h"

namespace essai {

// A line of words with no context.
inline std::string Ligne(std::string_view caracteristiques, std::string_view code, std::string_view mot) {
  return quelvar::Joindre({caracteristiques, quelvar::CadreGauche(code, 4), quelvar::CadreGauche(mot, 10), "$$",
                           std::string(75, ' '), "\r\n"});
}

}  // namespace essai
