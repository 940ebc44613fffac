#include "core/document/texteedite.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "support/environnement.h"
#include "support/erreur.h"

namespace quelvar {
namespace {

using namespace std::string_literals;

std::string TousLesOctets() {
  std::string octets;
  for (int i = 0; i < 256; ++i) octets += static_cast<char>(i);
  return octets;
}

// Whatever stands in a file, reading and saving it without a change gives the same bytes.
TEST(DocumentTexte, RoundTripKeepsEveryByte) {
  const std::string cas[] = {
      "",
      "\n",
      "\r\n",
      "\r",
      "\x1A",
      "sans fin de ligne",
      "ENQ\r\n 300\r\nSEX   1 2\r\n",
      "ENQ\n 300\nSEX   1 2\n",
      "fin\r\n\x1A",
      "deux\r\n\x1A\x1A",
      "milieu\x1A\r\nsuite\r\n",
      "a\r\nb\nc\r\n",    // a lone LF among CR LF
      "a\nb\r\nc\n",      // a CR LF among LF
      "a\nb\r\n",         // as many of each
      "a\r\r\nb\rc\r\n",  // CR that end nothing
      "a\r",              // a CR at the very end
      TousLesOctets(),
      "\r\n" + TousLesOctets() + "\r\n",
      "\xE9t\xE9 \x80\r\n",
      "\x81\x8D\x8F\x90\x9D\xA0\xAD\r\n",
      "\xC3\xA9t\xC3\xA9;\xE2\x82\xAC;\xF0\x9F\x98\x80\n",  // UTF-8
      "\xEF\xBB\xBFNUM;NOM\r\n1;\xC5\xB4\r\n\x1A",          // with its mark
      "\xEF\xBB\xBF",
      "\xC3\xA9\xC3\r\n",                         // cut UTF-8
      "\xC3\xA9 \xE2\x80\xA8 \xE2\x80\xA9\r\n",   // separators that a text box would turn into lines
      "\xC3\xA9 \xE2\x90\x8A\n\xE2\x90\x8D\r\n",  // the pictures themselves
      "\xC3\xA9\x01\x7F\r\r\nx\n",
  };
  for (const std::string& octets : cas) {
    const DocumentTexte document = DecoderTexte(octets);
    EXPECT_EQ(EncoderTexte(document.texte, document.forme), octets) << testing::PrintToString(octets);
    EXPECT_EQ(document.texte.find(u'\r'), std::u16string::npos);
  }
}

TEST(DocumentTexte, ShowsTheCharactersAndTellsTheForm) {
  struct Cas {
    std::string octets;
    std::u16string texte;
    FormeTexte forme;
  };
  const auto crlf = FinsDeLigne::CrLf;
  const auto lf = FinsDeLigne::Lf;
  const auto page = EncodageDuTexte::PageDeCode;
  const auto utf8 = EncodageDuTexte::Utf8;
  const Cas cas[] = {
      {"\xE9t\xE9\r\n\x80", u"été\n€", {page, false, crlf, false, false}},
      {"a\nb\n", u"a\nb\n", {page, false, lf, false, false}},
      {"a\r\nb\nc\r\n\x1A", u"a\nb\u240A\nc\n", {page, false, crlf, true, true}},
      {"a\nb\r\nc\n", u"a\nb\u240D\nc\n", {page, false, lf, true, false}},
      {"a\0b\x7F\t\r\n"s, u"a\u2400b\u2421\t\n", {page, false, crlf, false, false}},
      {"1\xAD\x32\r\n",
       u"1\u2010"
       u"2\n",
       {page, false, crlf, false, false}},
      {"\xC3\xA9\n", u"é\n", {utf8, false, lf, false, false}},
      {"\xEF\xBB\xBF\xF0\x9F\x98\x80", u"😀", {utf8, true, crlf, false, false}},
      {"\xC3\xA9\xE9", u"Ã©é", {page, false, crlf, false, false}},
      {"ascii", u"ascii", {page, false, crlf, false, false}},
  };
  for (const Cas& c : cas) {
    const DocumentTexte document = DecoderTexte(c.octets);
    EXPECT_EQ(document.texte, c.texte) << c.octets;
    EXPECT_EQ(document.forme, c.forme) << c.octets;
  }
}

TEST(DocumentTexte, CharacterOutsideTheEncodingBecomesAQuestionMark) {
  const std::u16string texte = u"œ Ŵ 😀 \u2400 \r \xD800.\n";
  EXPECT_EQ(EncoderTexte(u"œ Ŵ 😀\n", {}), "\x9C ? ?\r\n");
  EXPECT_EQ(CaracteresAdmis(texte, EncodageDuTexte::PageDeCode), u"œ ? ? \u2400 \u240D ?.\n");
  EXPECT_EQ(CaracteresAdmis(u"\u00AD\u2010", EncodageDuTexte::PageDeCode), u"\u2010\u2010");
  EXPECT_EQ(EncoderTexte(u"\u2010", {}), "\xAD");
  EXPECT_EQ(CaracteresAdmis(texte, EncodageDuTexte::Utf8), u"œ Ŵ 😀 \u2400 \u240D \uFFFD.\n");
}

TEST(DocumentTexte, LongLinesAreBroken) {
  struct Cas {
    std::u16string texte;
    std::u16string coupe;
  };
  const Cas cas[] = {
      {u"", u""},
      {u"abc\nabc", u"abc\nabc"},
      {u"abcd\n", u"abc\nd\n"},
      {u"a\n\nabcdefg", u"a\n\nabc\ndef\ng"},
      {u"abcdef\nab\nabcd\n", u"abc\ndef\nab\nabc\nd\n"},
  };
  for (const Cas& c : cas) EXPECT_EQ(CouperLignesLongues(c.texte, 3), c.coupe);
}

TEST(DocumentTexte, CapacityRefusesTooManyBytesTooManyLinesOrALongLine) {
  const essai::DossierTemporaire dossier;
  const Chemin chemin = dossier.Chemin() / "ENQ.DAT";
  const Capacite petite{20, 3, 8};
  struct Cas {
    std::string octets;
    std::string_view faute;  // empty when the file is held
  };
  const Cas cas[] = {
      {"12345678\r\n1\n2", {}},
      {"123456\r\n123456\r\n12345", "21 octets"},
      {"1\n2\n3\n4\n", "4 lignes"},
      {"123456789\n", "une ligne de 9 caractères"_w},
  };
  for (const Cas& c : cas) {
    essai::EcrireOctets(chemin, c.octets);
    const FichierOuvert ouvert = OuvrirDocument(chemin, petite);
    EXPECT_EQ(Contient(petite, ouvert.mesure), c.faute.empty()) << c.octets;
    if (c.faute.empty()) continue;
    EXPECT_EQ(TexteCapacite("ENQ.DAT", ouvert.mesure, petite),
              Joindre({"Le fichier ENQ.DAT est trop grand pour l'éditeur ("_w, c.faute,
                       ").\nL'éditeur tient 20 octets, 3 lignes et des lignes de 8 caractères."_w}));
  }
}

TEST(DocumentTexte, FailureToOpenByItsNumber) {
  const essai::DossierTemporaire dossier;
  const auto numero = [](const Chemin& chemin) { return essai::NumeroLeve([&] { OuvrirDocument(chemin, {}); }); };
  EXPECT_EQ(numero(dossier.Chemin() / "absent.pos"), kFichierIntrouvable);
  EXPECT_EQ(numero(dossier.Chemin()), kAccesFichier);
  EXPECT_EQ(numero("/dev/zero"), kAccesFichier);
}

TEST(DocumentTexte, SavesThroughALinkAndKeepsTheRights) {
  const essai::DossierTemporaire dossier;
  const Chemin fichier = dossier.Chemin() / "ENQ.POS";
  const Chemin lien = dossier.Chemin() / "lien.pos";
  essai::EcrireOctets(fichier, "avant\r\n");
  ::chmod(fichier.c_str(), 0640);
  std::filesystem::create_symlink(fichier, lien);

  EnregistrerDocument(lien, u"après\n", {});

  EXPECT_TRUE(std::filesystem::is_symlink(lien));
  EXPECT_EQ(LireOctets(fichier), "apr\xE8s\r\n");
  struct stat etat {};
  ASSERT_EQ(::stat(fichier.c_str(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 0777U, 0640U);
}

TEST(DocumentTexte, FailedSaveLeavesTheFileWhole) {
  const essai::DossierTemporaire dossier;
  const Chemin fichier = dossier.Chemin() / "ENQ.POS";
  essai::EcrireOctets(fichier, "avant\r\n");
  {
    const essai::DisquePlein disque(1000);
    EXPECT_THROW(EnregistrerDocument(fichier, std::u16string(5000, u'x'), {}), Erreur);
  }

  EXPECT_EQ(LireOctets(fichier), "avant\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dossier.Chemin()), {}), 1);
  EXPECT_THROW(EnregistrerDocument(dossier.Chemin() / "absent" / "A.POS", u"x", {}), Erreur);
}

}  // namespace
}  // namespace quelvar
