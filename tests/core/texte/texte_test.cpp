#include "core/texte/texte.h"

#include <gtest/gtest.h>

#include <set>

#include "core/texte/caracteres.h"
#include "core/texte/utf16.h"

namespace quelvar {
namespace {

TEST(Texte, EveryByteSurvivesTheScreenAndBack) {
  std::string octets;
  for (int i = 1; i < 256; ++i) octets += static_cast<char>(i);
  EXPECT_EQ(DepuisUtf8(VersUtf8(octets)), octets);
}

TEST(Texte, LiteralsAreConvertedAtCompileTime) {
  static_assert("é€œ"_w == "\xE9\x80\x9C");
  EXPECT_EQ("Tri à plat"_w.size(), 10U);
}

TEST(Texte, WhatTheCodePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(DepuisUtf8("a\u2192b"), "a?b");
  EXPECT_EQ(DepuisUtf8("\xC3"), "?");
  EXPECT_EQ(DepuisUtf8("\xE9t\xE9"), "?t?");
}

TEST(Texte, CaseCoversAccentedLetters) {
  EXPECT_EQ(Majuscules("été œuvre ÿ ž ß ÷ 9"_w), "ÉTÉ ŒUVRE Ÿ Ž ß ÷ 9"_w);
  EXPECT_EQ(Minuscules("ÉTÉ ŒUVRE Ÿ Ž ×"_w), "été œuvre ÿ ž ×"_w);
  EXPECT_TRUE(EgalSansCasse("Enquête"_w, "ENQUÊTE"_w));
  EXPECT_FALSE(EgalSansCasse("ENQ", "ENQA"));
}

TEST(Texte, AnAccentIsTakenOffALetterAndNothingElseChanges) {
  std::string sans("ÀÉÎÕÜÝÇÑ àéîõüýçñÿ"_w);
  for (char& c : sans) c = SansAccent(c);
  EXPECT_EQ(sans, "AEIOUYCN aeiouycny");
  for (const char c : "AZaz09 ÆØÐÞßæøðþ×÷ŒŸŠ€"_w) EXPECT_EQ(SansAccent(c), c);
}

// Each byte at each of the eight places, beside bytes that are within the limit.
TEST(Caracteres, EightBytesAreJudgedAsEachAlone) {
  for (const unsigned limite : {0U, 9U, 0x7FU})
    for (unsigned octet = 0; octet < 256; ++octet)
      for (unsigned place = 0; place < 8; ++place) {
        const std::uint64_t octets =
            HuitFois(static_cast<unsigned char>(limite / 2)) & ~(std::uint64_t{0xFF} << 8 * place);
        const std::uint64_t fautif =
            AuDela(octets | std::uint64_t{octet} << 8 * place, HuitFois(SeuilDe(static_cast<unsigned char>(limite))));
        EXPECT_EQ(fautif, octet > limite ? std::uint64_t{0x80} << 8 * place : 0) << octet << " at " << place;
      }
}

TEST(Texte, OnlyBlanksAreTrimmed) {
  EXPECT_EQ(Rogner("  a\t "), "a\t");
  EXPECT_EQ(Rogner("   "), "");
  EXPECT_EQ(RognerGauche("  a "), "a ");
  EXPECT_EQ(RognerDroite("  a "), "  a");
}

TEST(Texte, ColumnsCountFromOneAndEndWithTheText) {
  EXPECT_EQ(Milieu("abcdef", 2, 3), "bcd");
  EXPECT_EQ(Milieu("abcdef", 6, 3), "f");
  EXPECT_EQ(Milieu("abcdef", 7, 3), "");
}

TEST(Texte, NamesLoseNothing) {
  std::set<std::string> noms;
  for (const std::string nom : {"ENQ", "Été", "Да", "Не", "a\xFF", "a\xFE", "\xC2\x81", "\xF0\x9F\x98\x80"}) {
    const std::string texte = NomDepuisUtf8(nom);
    EXPECT_EQ(VersUtf8(texte), nom);
    noms.insert(Majuscules(texte));
  }
  EXPECT_EQ(noms.size(), 8U);
  EXPECT_EQ(NomMontrable(NomDepuisUtf8("Да-é")),
            "?"
            "?-\xE9");
  EXPECT_EQ(NomMontrable("\x81\x8D\x81"), "\x81\x8D\x81") << "bytes that are no name stay";
}

TEST(Texte, Utf8IsToldFromTheCodePage) {
  EXPECT_TRUE(EstUtf8MultiOctet("caf\xC3\xA9"));
  EXPECT_FALSE(EstUtf8MultiOctet("cafe"));
  EXPECT_FALSE(EstUtf8MultiOctet("caf\xE9"));
  EXPECT_FALSE(EstUtf8MultiOctet("\xC3\xA9 caf\xE9"));
  EXPECT_FALSE(EstUtf8MultiOctet("\xC0\xAF"));          // overlong
  EXPECT_FALSE(EstUtf8MultiOctet("\xED\xA0\x80"));      // surrogate
  EXPECT_FALSE(EstUtf8MultiOctet("\xF4\x90\x80\x80"));  // beyond the last code point
}

// Cut anywhere, a text says the same; half a pair and half a unit become the replacement character.
TEST(Texte, Utf16ComesInPieces) {
  using namespace std::string_view_literals;
  constexpr std::string_view kRemplacement = "\xEF\xBF\xBD";
  const struct {
    Utf16 ordre;
    std::string_view octets;
    std::string utf8;
  } cas[] = {
      {Utf16::PetitBout, "e\0\xE9\0\x3D\xD8\x00\xDE"sv, "e\xC3\xA9\xF0\x9F\x98\x80"},
      {Utf16::GrosBout, "\0e\0\xE9\xD8\x3D\xDE\x00"sv, "e\xC3\xA9\xF0\x9F\x98\x80"},
      {Utf16::PetitBout,
       "\x3D\xD8"
       "e\0"sv,
       std::string(kRemplacement) + "e"},
      {Utf16::PetitBout,
       "\x00\xDE"
       "e\0"sv,
       std::string(kRemplacement) + "e"},
      {Utf16::PetitBout, "e\0\x3D\xD8"sv, "e" + std::string(kRemplacement)},
      {Utf16::PetitBout, "e\0e"sv, "e" + std::string(kRemplacement)},
  };
  for (const auto& c : cas)
    for (std::size_t coupe = 0; coupe <= c.octets.size(); ++coupe) {
      DecodeurUtf16 decodeur(c.ordre);
      std::string utf8;
      decodeur.Ajouter(c.octets.substr(0, coupe), utf8);
      decodeur.Ajouter(c.octets.substr(coupe), utf8);
      decodeur.Finir(utf8);
      EXPECT_EQ(utf8, c.utf8) << coupe;
    }
  EXPECT_EQ(MarqueUtf16("\xFF\xFE"), Utf16::PetitBout);
  EXPECT_EQ(MarqueUtf16("\xFE\xFF"), Utf16::GrosBout);
  EXPECT_FALSE(MarqueUtf16("\xEF\xBB\xBF"));
}

}  // namespace
}  // namespace quelvar
