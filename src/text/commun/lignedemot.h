// The line of a word in the files of words: characteristics, code, word, the sign of its end, what surrounds it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quelvar::text {

inline constexpr std::size_t kLargeurMot = 10;
inline constexpr std::size_t kLargeurCode = 4;
inline constexpr std::size_t kContexteGauche = 30;
inline constexpr std::size_t kContexteDroit = 45;
inline constexpr std::string_view kFinDeMot = "$$";  // between word and context in .DAT

// Columns before the word code in a line of words; nothing when the line is not one.
std::optional<std::size_t> LargeurDesCaracteristiques(std::string_view ligne);

}  // namespace quelvar::text
