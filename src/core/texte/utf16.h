// Texts in UTF-16, which spreadsheets and editors export, as UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelvar {

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
