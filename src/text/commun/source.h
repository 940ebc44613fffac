// The text that a user brings: read whole, with what it is written in, and its way to the code page.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/texte/utf16.h"

namespace quelvar::text {

// The byte order of a text in UTF-16: by its mark, or by zeros in nearly every second byte; nothing for any other text.
std::optional<Utf16> EstUtf16(std::string_view octets);
// Whether it is none of the code page.
inline bool EstAConvertir(std::string_view octets) { return EstUtf16(octets).has_value() || EstUtf8(octets); }
// The text without its mark; half a surrogate pair becomes the replacement character.
std::string Utf8DepuisUtf16(std::string_view octets, Utf16 ordre);

enum class Codage { PageDeCode, Utf8, Utf16 };

struct SourceDeTexte {
  std::string octets;  // those of the file; of a text in UTF-16 those of the same in UTF-8
  Codage codage = Codage::PageDeCode;
};
// `nom`: of the file, as a sentence on a line that is too long has it (kMemoireInsuffisante). Raises a failure of
// reading.
SourceDeTexte LireSource(const Chemin& chemin, std::string_view nom);

// Letters of more than one byte in UTF-8, and the line of the first one, from 1.
struct LettresLongues {
  std::int64_t nombre = 0;
  std::int64_t premiereLigne = 0;
};
LettresLongues CompterLettresLongues(std::string_view utf8);

// The text in the code page, and what the conversion has lost.
struct TexteConverti {
  std::string octets;
  std::int64_t perdus = 0;
  std::int64_t premiereLigne = 0;  // of the first character lost, from 1
};
TexteConverti Convertir(std::string_view utf8);

}  // namespace quelvar::text
