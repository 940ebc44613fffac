// Texts in UTF-16, which spreadsheets and editors export, as UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelvar {

// Halves of a pair of units: the first ones, then the second ones, then no more.
constexpr bool EstPremiereMoitie(char16_t unite) { return unite >= 0xD800 && unite < 0xDC00; }
constexpr bool EstSecondeMoitie(char16_t unite) { return unite >= 0xDC00 && unite < 0xE000; }
// The character that a first and a second half make, and what stands for half a pair.
constexpr char32_t PointDesMoities(char16_t premiere, char16_t seconde) {
  return 0x10000U + ((char32_t{premiere} - 0xD800U) << 10U) + (char32_t{seconde} - 0xDC00U);
}
inline constexpr char32_t kMoitieSeule = 0xFFFD;

// Adds a character, by its code point, to a text: one unit, or a pair.
inline void AjouterUtf16(std::u16string& texte, char32_t point) {
  if (point < 0x10000) {
    texte += static_cast<char16_t>(point);
  } else {
    texte += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
    texte += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
  }
}

// The order of the two bytes of a unit: the low one first, or the high one.
enum class Utf16 { PetitBout, GrosBout };

// The order that the mark in front of a text tells; nothing without a mark.
std::optional<Utf16> MarqueUtf16(std::string_view octets);

// Decodes a text that comes in pieces, cut anywhere. A mark in front is a character as any other.
class DecodeurUtf16 {
 public:
  explicit DecodeurUtf16(Utf16 ordre) : ordre_(ordre) {}

  // Adds what the piece holds to the text; half a surrogate pair becomes the replacement character.
  void Ajouter(std::string_view octets, std::string& utf8);
  // No piece follows: what was cut in two becomes the replacement character.
  void Finir(std::string& utf8);

 private:
  void AjouterUnite(char16_t unite, std::string& utf8);

  Utf16 ordre_;
  std::string impair_;          // first byte of a unit cut in two
  char16_t enAttente_ = u'\0';  // first half of a pair
};

}  // namespace quelvar
