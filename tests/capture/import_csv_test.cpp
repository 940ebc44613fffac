#include "capture/import_csv.h"

#include <gtest/gtest.h>

#include "capture/tableur.h"
#include "support/programme.h"

using namespace quelvar::capture;

namespace quelvar {
namespace {

std::vector<std::string> Cellules(std::string_view ligne, char separateur = ';') {
  std::vector<std::string> cellules;
  LigneDeTableur decoupe(ligne, separateur);
  for (std::string_view cellule; decoupe.Suivante(cellule);) cellules.emplace_back(cellule);
  return cellules;
}

TEST(LigneDeTableur, QuotesBlanksAndEmptyCells) {
  const struct {
    std::string_view ligne;
    std::vector<std::string> cellules;
  } cas[] = {{"a;b", {"a", "b"}},
             {"", {""}},
             {";", {"", ""}},
             {" a ; b ", {"a", " b "}},
             {"\"a;b\";c", {"a;b", "c"}},
             {"\"a\"\"b\";c", {"a\"b", "c"}},
             {"\"a\"x y;c", {"ax y", "c"}},
             {"\" a \";\" b \"", {"a", " b "}},
             {"a\"b;c\"d", {"a\"b", "c\"d"}},
             {"\"a;b", {"a;b"}},
             {"\"\";c", {"", "c"}},
             {" \"a;b\"", {"\"a", "b\""}}};
  for (const auto& [ligne, cellules] : cas) EXPECT_EQ(Cellules(ligne), cellules) << ligne;
}

TEST(LigneDeTableur, DigitsReadByFourAreThoseReadOneByOne) {
  // Each place of the eight bytes in turn holds what a run of digits and separators may not hold.
  for (const char intrus : std::string("/:;\t a\"-\xB1\x00", 10))
    for (std::size_t place = 0; place < 8; ++place) {
      std::string ligne = "1;2;3;9;5;;7";
      ligne[place] = intrus;
      std::vector<std::string> cellules;
      LigneDeTableur decoupe(ligne, ';');
      const char* octets = nullptr;
      std::string_view cellule;
      do {
        while (const unsigned nombre = decoupe.ChiffresSuivants(octets))
          for (unsigned i = 0; i < nombre; ++i) cellules.emplace_back(1, octets[2 * i]);
        if (!decoupe.Suivante(cellule)) break;
        cellules.emplace_back(cellule);
      } while (true);
      EXPECT_EQ(cellules, Cellules(ligne)) << ligne;
    }
}

class RunImport : public essai::RunDeProgramme {
 protected:
  Fin Importer(std::string_view csv, bool sansIntitules = false) {
    Ecrire("ENQ.CSV", csv);
    return ImportCsv(contexte_, {sansIntitules});
  }
};

TEST_F(RunImport, WhatACellOfCodesMayHold) {
  const struct {
    std::string_view cellule, dat;  // the column is three wide; an empty dat: error 13
  } cas[] = {{"7", "007"},   {"+7", "0+7"},   {"-7", "0-7"}, {"1E2", "1E2"}, {"1,5", "000"},
             {"a.b", "000"}, {"\t7", "0\t7"}, {"a", ""},     {"1 2", ""},    {"--7", ""},
             {"E7", ""},     {"7E", ""},      {"\t", ""},    {"7x", ""}};
  for (const auto& [cellule, dat] : cas) {
    const Fin fin = Importer(Joindre({"AAA;BBB;CCC\n100;", cellule, ";1\n"}));
    EXPECT_EQ(fin, dat.empty() ? Fin::Arret : Fin::Normale) << cellule;
    const std::size_t largeur = cellule.size();
    if (!dat.empty()) EXPECT_EQ(Lire("ENQ.DAT"), Joindre({"100", dat.substr(3 - largeur), "1\r\n"})) << cellule;
    else EXPECT_NE(montre_.find("notez le numero =  13 Incompatibilit"), std::string::npos) << cellule;
  }
}

TEST_F(RunImport, TheMoreFrequentSignSeparates) {
  EXPECT_EQ(Importer("A;B;C\n1\t2\t3;\n1\t2\t3\n", true), Fin::Normale);  // 3 ";" and 4 tabs
  EXPECT_EQ(Lire("ENQ.DAT"), "A;B;C\r\n    123;\r\n    12 3\r\n");
  Importer("A;B\tC\n1;2\t3\n", true);  // a tie
  EXPECT_EQ(Lire("ENQ.DAT"), "AB\tC\r\n12\t3\r\n");
  Importer("\"a;b;c;d\"\t1\n\"e;f\"\t2\n", true);  // signs inside quotes don't count
  EXPECT_EQ(Lire("ENQ.DAT"), "a;b;c;d1\r\n    e;f2\r\n");
}

TEST_F(RunImport, AFailedRunLeavesTheFormerFilesWhole) {
  Ecrire("ENQ.DAT", "ancien");
  Ecrire("ENQ.POS", "T\n1\nAAA   1 2\n");
  EXPECT_EQ(Importer("AAA\nx\n"), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.DAT"), "ancien");
  EXPECT_EQ(Lire("ENQ.POS"), "T\n1\nAAA   1 2\n");
  EXPECT_EQ(Lire("ENQ.PO2"), "T\r\n1\r\nAAA   1 2\r\n");
  EXPECT_EQ(Fichiers().size(), 5U) << "no scratch file is left";
}

TEST_F(RunImport, AFullDiskLeavesTheFormerFilesWhole) {
  Ecrire("ENQ.DAT", "ancien");
  std::string csv = "AAA;BBB\n";
  for (int i = 0; i < 100000; ++i) csv += "1;2\n";
  Ecrire("ENQ.CSV", csv);
  {
    const essai::DisquePlein disque(100000);
    EXPECT_EQ(ImportCsv(contexte_, {}), Fin::Arret);
  }
  EXPECT_NE(montre_.find("notez le numero =  61 Disque plein"), std::string::npos) << montre_;
  EXPECT_EQ(Lire("ENQ.DAT"), "ancien");
  EXPECT_EQ(Fichiers().size(), 3U) << "no scratch file is left";
}

TEST_F(RunImport, LinesOfAnyShape) {
  EXPECT_EQ(Importer("A;B\n\n1;2\n3"), Fin::Normale);  // an empty line, a short last line without end
  EXPECT_EQ(Lire("ENQ.DAT"), "\r\n12\r\n3\r\n");
  EXPECT_EQ(Importer("A;B\r\n1;2;3\r\n\x1A"), Fin::Normale);  // more cells than titles
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 1 \r\n  B   2 2\r\nXXX   3 3\r\n") << "column 1 holds the number of individuals";
  EXPECT_EQ(Importer("NUM;TTT\n"), Fin::Normale);  // titles only
  EXPECT_EQ(Lire("ENQ.DAT"), "");
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 0 \r\n");
}

TEST_F(RunImport, TwentyThousandColumns) {
  std::string titres;
  std::string ligne;
  for (int j = 0; j < 20000; ++j) {
    titres += (j ? ";Q" : "Q") + std::to_string(j);
    ligne += j ? ";5" : "5";
  }
  EXPECT_EQ(Importer(titres + "\n" + ligne + "\n" + ligne + "\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), std::string(20000, '5') + "\r\n" + std::string(20000, '5') + "\r\n");
}

TEST_F(RunImport, Utf8IsRecognisedWithoutItsMark) {
  Importer("NOM;SEX\nD\xC3\xA9sir\xC3\xA9\xC3\xA9;1\nPaul;2\n");
  EXPECT_EQ(Lire("ENQ.DAT"), "Désiréé1\r\n   Paul2\r\n"_w);
  Importer("NOM;SEX\nD\xC3\xA9sir\xE9;1\n");  // one invalid sequence: the bytes are those of the code page
  EXPECT_EQ(Lire("ENQ.DAT"),
            "D\xC3\xA9sir\xE9"
            "1\r\n");
}

}  // namespace
}  // namespace quelvar
