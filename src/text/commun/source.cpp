#include "text/commun/source.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/chiffres/nombres.h"
#include "core/fichiers/systeme/lignelongue.h"
#include "core/texte/lignes.h"

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
  if (const std::optional<Utf16> ordre = MarqueUtf16(octets)) return ordre;
  // Without a mark: a Latin text has a zero in nearly every second byte, and none in the others.
  std::array<std::size_t, 2> zeros{};
  for (std::size_t i = octets.find('\0'); i < octets.size(); i = octets.find('\0', i + 1)) ++zeros[i % 2];
  constexpr std::size_t kAssez = 8;          // characters; in fewer a zero or two may come by chance
  constexpr std::size_t kPresqueAucun = 20;  // fewer than one in so many
  const std::size_t caracteres = octets.size() / 2;
  if (caracteres < kAssez) return std::nullopt;
  if (zeros[1] * 2 > caracteres && zeros[0] * kPresqueAucun < caracteres) return Utf16::PetitBout;
  if (zeros[0] * 2 > caracteres && zeros[1] * kPresqueAucun < caracteres) return Utf16::GrosBout;
  return std::nullopt;
}

std::string Utf8DepuisUtf16(std::string_view octets, Utf16 ordre) {
  std::string utf8;
  utf8.reserve(octets.size());
  DecodeurUtf16 decodeur(ordre);
  decodeur.Ajouter(octets.substr(0, octets.size() / 2 * 2), utf8);  // a byte too many at the end is no character
  decodeur.Finir(utf8);
  std::string_view texte = utf8;
  return OterMarqueUtf8(texte) ? std::string(texte) : utf8;
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
