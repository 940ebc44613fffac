#include "core/texte/utf16.h"

#include <utility>

#include "core/texte/texte.h"

namespace quelvar {

std::optional<Utf16> MarqueUtf16(std::string_view octets) {
  if (octets.starts_with("\xFF\xFE")) return Utf16::PetitBout;
  if (octets.starts_with("\xFE\xFF")) return Utf16::GrosBout;
  return std::nullopt;
}

void DecodeurUtf16::Ajouter(std::string_view octets, std::string& utf8) {
  const auto unite = [&](char premier, char second) {
    if (ordre_ == Utf16::PetitBout) std::swap(premier, second);
    return static_cast<char16_t>(static_cast<unsigned>(static_cast<unsigned char>(premier)) << 8U |
                                 static_cast<unsigned char>(second));
  };
  if (!impair_.empty() && !octets.empty()) {
    AjouterUnite(unite(impair_.front(), octets.front()), utf8);
    impair_.clear();
    octets.remove_prefix(1);
  }
  for (; octets.size() > 1; octets.remove_prefix(2)) AjouterUnite(unite(octets[0], octets[1]), utf8);
  impair_ += octets;
}

void DecodeurUtf16::AjouterUnite(char16_t unite, std::string& utf8) {
  const bool seconde = EstSecondeMoitie(unite);
  if (const char16_t premiere = std::exchange(enAttente_, u'\0'); premiere != 0) {
    AjouterUtf8(utf8, seconde ? PointDesMoities(premiere, unite) : kMoitieSeule);
    if (seconde) return;
  }
  if (EstPremiereMoitie(unite)) enAttente_ = unite;
  else AjouterUtf8(utf8, seconde ? kMoitieSeule : unite);
}

void DecodeurUtf16::Finir(std::string& utf8) {
  if (!impair_.empty() || enAttente_ != 0) AjouterUtf8(utf8, kMoitieSeule);
  impair_.clear();
  enAttente_ = u'\0';
}

}  // namespace quelvar
