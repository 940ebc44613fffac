// Whether a source of text is in UTF-8, judged line by line.
#pragma once

#include <string_view>

#include "core/texte/caracteres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

// A source is so when its mark says it, or when it holds valid sequences of several bytes and no invalid one.
struct IndicesDUtf8 {
  bool marque = false;    // a byte-order mark starts the file
  bool multiple = false;  // valid sequences of several bytes were met
  bool invalide = false;  // an invalid one was met

  void Voir(std::string_view ligne) {
    if (EstAscii(ligne)) return;
    (EstUtf8MultiOctet(ligne) ? multiple : invalide) = true;
  }
  bool EstUtf8() const { return marque || (multiple && !invalide); }
};

}  // namespace quelvar::capture
