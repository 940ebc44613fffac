// The byte transformations of the text preparation: one table built from the options.
#pragma once

#include <array>
#include <string>

namespace quelvar::text {

struct OptionsPrepText {
  bool accents = true;           // accented letters lose their accent
  bool ponctuation = true;       // punctuation, tabulation and the high codes become blanks
  bool majusculesEnMin = true;   // capitals become small letters
  bool minusculesEnMaj = false;  // small letters become capitals
  bool finsDeLigne = false;      // line ends become blanks unless three "&" stand before
  bool fichierDat = false;       // the text is generic .DAT
  std::string fichier{};         // another text, as typed; empty for the one of the generic
  bool remplacer = false;        // the files of the next generic may be replaced unasked

  bool operator==(const OptionsPrepText&) const = default;
};

// What each byte becomes, line ends apart.
std::array<char, 256> TableDe(const OptionsPrepText& options);

// Transforms the text in place, a byte for a byte.
void TransformerOctets(std::string& texte, const OptionsPrepText& options);

}  // namespace quelvar::text
