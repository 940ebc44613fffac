#include "text/commun/source.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "core/fichiers/lignelongue.h"
#include "core/texte/nombres.h"
#include "text/commun/lignes.h"

namespace quelvar::text {

namespace {

std::int64_t Interrogations(std::string_view octets) {
  return static_cast<std::int64_t>(std::count(octets.begin(), octets.end(), '?'));
}

// Rank (from 1) of the first line that lost a character.
std::int64_t PremiereLigneAlteree(std::string_view utf8) {
  LignesDuTexte lignes(utf8);
  std::int64_t numero = 1;
  for (std::string_view ligne; lignes.Lire(ligne); ++numero)
    if (Interrogations(DepuisUtf8(ligne)) != Interrogations(ligne)) break;
  return numero;
}

}  // namespace

std::optional<Utf16> EstUtf16(std::string_view octets) {
  if (octets.starts_with("\xFF\xFE")) return Utf16::PetitBout;
  if (octets.starts_with("\xFE\xFF")) return Utf16::GrosBout;
  // Without a mark: a Latin text has a zero in nearly every second byte, and none in the others.
  std::array<std::size_t, 2> zeros{};
  for (std::size_t i = octets.find('\0'); i < octets.size(); i = octets.find('\0', i + 1)) ++zeros[i % 2];
  constexpr std::size_t kAssez = 8;
  constexpr std::size_t kPresqueAucun = 20;  // fewer than one in so many
  const std::size_t caracteres = octets.size() / 2;
  if (caracteres < kAssez) return std::nullopt;
  if (zeros[1] * 2 > caracteres && zeros[0] * kPresqueAucun < caracteres) return Utf16::PetitBout;
  if (zeros[0] * 2 > caracteres && zeros[1] * kPresqueAucun < caracteres) return Utf16::GrosBout;
  return std::nullopt;
}

std::string Utf8DepuisUtf16(std::string_view octets, Utf16 sens) {
  constexpr char32_t kMarque = 0xFEFF;
  constexpr char32_t kInconnu = 0xFFFD;
  const std::size_t fort = sens == Utf16::GrosBout ? 0 : 1;
  const auto unite = [&](std::size_t i) -> char32_t {
    return static_cast<unsigned>(static_cast<unsigned char>(octets[i + fort])) << 8U |
           static_cast<unsigned char>(octets[i + 1 - fort]);
  };
  std::string utf8;
  utf8.reserve(octets.size());
  for (std::size_t i = 0; i + 1 < octets.size(); i += 2) {
    char32_t point = unite(i);
    if (i == 0 && point == kMarque) continue;
    if (point >= 0xD800 && point < 0xE000) {
      const char32_t bas = point < 0xDC00 && i + 3 < octets.size() ? unite(i + 2) : 0;
      const bool paire = bas >= 0xDC00 && bas < 0xE000;
      point = paire ? 0x10000 + ((point - 0xD800) << 10U) + (bas - 0xDC00) : kInconnu;
      if (paire) i += 2;
    }
    AjouterUtf8(utf8, point);
  }
  return utf8;
}

SourceDeTexte LireSource(const Chemin& chemin, std::string_view nom) {
  SourceDeTexte source{LireOctets(chemin), Codage::PageDeCode};
  ExigerLignesCourtes(source.octets, nom);
  if (const std::optional<Utf16> seize = EstUtf16(source.octets)) {
    source.codage = Codage::Utf16;
    source.octets = Utf8DepuisUtf16(source.octets, *seize);
  } else if (EstUtf8(source.octets)) {
    source.codage = Codage::Utf8;
  }
  return source;
}

LettresLongues CompterLettresLongues(std::string_view utf8) {
  constexpr auto kTete = [](char c) { return static_cast<unsigned char>(c) >= 0xC0; };
  OterMarqueUtf8(utf8);
  const auto premiere = std::find_if(utf8.begin(), utf8.end(), kTete);
  return {std::count_if(premiere, utf8.end(), kTete), std::count(utf8.begin(), premiere, '\n') + 1};
}

TexteConverti Convertir(std::string_view utf8) {
  OterMarqueUtf8(utf8);
  TexteConverti converti{DepuisUtf8(utf8), 0, 0};
  converti.perdus = Interrogations(converti.octets) - Interrogations(utf8);
  if (converti.perdus > 0) converti.premiereLigne = PremiereLigneAlteree(utf8);
  return converti;
}

}  // namespace quelvar::text
