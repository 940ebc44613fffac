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

// What a box says of the letters of more than one byte: how many, and where the first one is.
std::string LettresLongues(std::string_view utf8) {
  constexpr auto kTete = [](char c) { return static_cast<unsigned char>(c) >= 0xC0; };
  OterMarqueUtf8(utf8);
  const auto premiere = std::find_if(utf8.begin(), utf8.end(), kTete);
  const std::int64_t lettres = std::count_if(premiere, utf8.end(), kTete);
  if (lettres == 0) return {};  // only the mark is there
  return Joindre({" : "_w, Nombre(lettres), " lettre(s) y occupent plusieurs caractères, la première à la ligne "_w,
                  Nombre(std::count(utf8.begin(), premiere, '\n') + 1)});
}

// The text in the code page, and what the conversion has lost.
struct TexteConverti {
  std::string octets;
  std::int64_t perdus = 0;
  std::int64_t premiereLigne = 0;  // of the first character lost, from 1
};

TexteConverti Convertir(std::string_view utf8) {
  OterMarqueUtf8(utf8);
  TexteConverti converti{DepuisUtf8(utf8), 0, 0};
  converti.perdus = Interrogations(converti.octets) - Interrogations(utf8);
  if (converti.perdus > 0) converti.premiereLigne = PremiereLigneAlteree(utf8);
  return converti;
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

std::string PrendreTexte(const Contexte& contexte, const Chemin& chemin, std::string_view nom, Rapport& rapport) {
  std::string octets = LireOctets(chemin);
  ExigerLignesCourtes(octets, nom);
  const std::optional<Utf16> seize = EstUtf16(octets);
  if (!EstAConvertir(octets)) return octets;
  const std::string_view codage = seize ? "UTF-16" : "UTF-8";
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({"Le fichier ", nom, " est en ", codage,
               seize ? std::string(" : chaque lettre y occupe deux caractères"_w) : LettresLongues(octets),
               ".\r\nIl va être converti à la lecture (le fichier lui-même reste comme il est). L'acceptez-vous ?"_w}),
      Boutons::OuiNon);
  if (reponse != Reponse::Oui) {
    rapport.Ligne({"*** Arrêt du programme : le fichier "_w, nom, " est en ", codage});
    throw Erreur(kArretAnnonce);
  }
  if (seize) octets = Utf8DepuisUtf16(octets, *seize);
  TexteConverti converti = Convertir(octets);
  if (converti.perdus > 0)
    rapport.Ligne({"*** Attention : ", Nombre(converti.perdus), " caractère(s) de "_w, nom,
                   " n'existent pas dans la page de code et deviennent \"?\" (le premier à la ligne "_w,
                   Nombre(converti.premiereLigne), ")"});
  return std::move(converti.octets);
}

}  // namespace quelvar::text
