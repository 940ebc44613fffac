// The text that a user brings: read whole, and never taken for what it is not when it is in UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/programme/programme.h"
#include "core/texte/utf16.h"

namespace quelvar::text {

// The bytes of the file in the code page. One in UTF-8 or UTF-16 is converted when the user agrees in a box, and the
// report tells the characters that the code page lacks; otherwise the run stops (kArretAnnonce). Raises a failure of
// reading.
std::string PrendreTexte(const Contexte& contexte, const Chemin& chemin, std::string_view nom, Rapport& rapport);

// The byte order of a text in UTF-16: by its mark, or by zeros in nearly every second byte; nothing for any other text.
std::optional<Utf16> EstUtf16(std::string_view octets);
// Whether PrendreTexte would ask.
inline bool EstAConvertir(std::string_view octets) { return EstUtf16(octets).has_value() || EstUtf8(octets); }
// The text without its mark; half a surrogate pair becomes the replacement character.
std::string Utf8DepuisUtf16(std::string_view octets, Utf16 ordre);

}  // namespace quelvar::text
