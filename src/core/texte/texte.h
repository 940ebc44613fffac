// Texts of files and reports: bytes of Windows-1252, one byte one column, and the only door to UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quelvar {

// Code points of the bytes 80 to 9F hex; the five undefined bytes keep their own number, so that they survive a round
// trip.
inline constexpr std::array<char16_t, 32> kPointsDe80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Byte of a code point, or -1 when the code page does not hold it.
constexpr int OctetDe(char32_t point) {
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<int>(point);
  for (std::size_t i = 0; i < kPointsDe80.size(); ++i)
    if (kPointsDe80[i] == point) return static_cast<int>(0x80 + i);
  return -1;
}

// One character read from UTF-8.
struct PointUtf8 {
  char32_t point;
  std::size_t longueur;  // bytes taken; 0 for an invalid sequence
};

// Decodes the sequence that the text, which is not empty, begins with; overlong forms, surrogates and cut sequences are
// invalid.
constexpr PointUtf8 DecoderUtf8(std::string_view texte) {
  const auto octet = [&](std::size_t i) { return static_cast<unsigned char>(texte[i]); };
  const unsigned char tete = octet(0);
  if (tete < 0x80) return {tete, 1};
  const std::size_t longueur = tete >= 0xC2 && tete <= 0xDF   ? 2
                               : tete >= 0xE0 && tete <= 0xEF ? 3
                               : tete >= 0xF0 && tete <= 0xF4 ? 4
                                                              : 0;
  if (longueur == 0 || texte.size() < longueur) return {0, 0};
  char32_t point = tete & (0xFFU >> (longueur + 1));
  for (std::size_t i = 1; i < longueur; ++i) {
    if ((octet(i) & 0xC0) != 0x80) return {0, 0};
    point = (point << 6) | (octet(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> minimum = {0, 0, 0x80, 0x800, 0x10000};
  const bool valable = point >= minimum[longueur] && point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
  return valable ? PointUtf8{point, longueur} : PointUtf8{0, 0};
}

namespace detail {

template <std::size_t N>
struct LitteralUtf8 {
  char octets[N] = {};
  consteval LitteralUtf8(const char (&litteral)[N]) {
    for (std::size_t i = 0; i < N; ++i) octets[i] = litteral[i];
  }
};

template <LitteralUtf8 L>
struct LitteralW {
  static constexpr std::size_t Longueur() {
    std::size_t n = 0;
    for (std::string_view reste(L.octets, sizeof L.octets - 1); !reste.empty(); ++n) {
      const PointUtf8 lu = DecoderUtf8(reste);
      if (lu.longueur == 0 || OctetDe(lu.point) < 0) throw "this literal holds a character that Windows-1252 lacks";
      reste.remove_prefix(lu.longueur);
    }
    return n;
  }
  static constexpr auto Convertir() {
    std::array<char, Longueur() + 1> convertis = {};
    std::size_t n = 0;
    for (std::string_view reste(L.octets, sizeof L.octets - 1); !reste.empty(); ++n) {
      const PointUtf8 lu = DecoderUtf8(reste);
      convertis[n] = static_cast<char>(OctetDe(lu.point));
      reste.remove_prefix(lu.longueur);
    }
    return convertis;
  }
  static constexpr auto octets = Convertir();
};

}  // namespace detail

// A literal with accents, converted from the UTF-8 source to the code page at compile time: "Tri à plat"_w.
template <detail::LitteralUtf8 L>
consteval std::string_view operator""_w() {
  return {detail::LitteralW<L>::octets.data(), detail::LitteralW<L>::octets.size() - 1};
}

// A view on a text of the code page, what every report function takes. A plain literal must be ASCII: one with an
// accent does not compile without its _w.
class Texte {
 public:
  template <std::size_t N>
  consteval Texte(const char (&litteral)[N]) : vue_(litteral, N - 1) {
    for (const char c : vue_)
      if (static_cast<unsigned char>(c) > 0x7F) throw "a literal with accents needs the suffix _w";
  }
  constexpr Texte(std::string_view vue) : vue_(vue) {}
  Texte(const std::string& texte) : vue_(texte) {}

  constexpr operator std::string_view() const { return vue_; }
  constexpr std::string_view Vue() const { return vue_; }

 private:
  std::string_view vue_;
};

// The texts one after the other.
std::string Joindre(std::initializer_list<Texte> morceaux);

// Trimming takes off blanks (character 32) only.
std::string_view Rogner(std::string_view texte);
std::string_view RognerGauche(std::string_view texte);
std::string_view RognerDroite(std::string_view texte);

// Upper and lower case, accented letters of the code page included.
char Majuscule(char c);
char Minuscule(char c);
// The letter under an accent, À to ÿ in their order, in its case; any other character as it is.
char SansAccent(char c);
std::string Majuscules(std::string_view texte);
std::string Minuscules(std::string_view texte);
bool EgalSansCasse(std::string_view a, std::string_view b);

// The part of a text that starts at a column counted from 1, at most `largeur` bytes; empty past the end.
std::string_view Milieu(std::string_view texte, std::size_t colonne, std::size_t largeur = std::string_view::npos);

// Adds a character, by its code point, to a UTF-8 text.
void AjouterUtf8(std::string& utf8, char32_t point);

// The edge to the screen, the terminal and the file names. Characters outside the code page, and invalid bytes, become
// "?".
std::string VersUtf8(std::string_view texte);
std::string DepuisUtf8(std::string_view utf8);
// A file name or a generic: nothing of it is lost, so that two names stay two. A character outside the code page, and
// an invalid byte, become a sequence of bytes that the code page leaves undefined; VersUtf8 gives them back.
std::string NomDepuisUtf8(std::string_view utf8);
// The name as bytes of the code page can show it: "?" for each of these sequences.
std::string NomMontrable(std::string_view nom);
// Whether the name holds one.
bool AvecEtrangers(std::string_view nom);
// Length of the sequence at the end of the name, 0 when it ends in a character of the code page.
std::size_t EtrangerFinal(std::string_view nom);
// The mark that may stand in front of a UTF-8 file.
inline constexpr std::string_view kMarqueUtf8 = "\xEF\xBB\xBF";
// Takes it away; whether it stood there.
bool OterMarqueUtf8(std::string_view& octets);
// True when the bytes hold at least one multi-byte UTF-8 sequence and no invalid one.
bool EstUtf8MultiOctet(std::string_view octets);
// The same, or the mark in front.
bool EstUtf8(std::string_view octets);

}  // namespace quelvar
