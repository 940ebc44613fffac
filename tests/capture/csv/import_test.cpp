#include "capture/csv/import.h"

#include <gtest/gtest.h>

#include "capture/noms/courts.h"
#include "support/programme.h"

using namespace quelvar::capture;

namespace quelvar {
namespace {

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
  } cas[] = {{"7", "007"},   {"+7", "007"},  {"-7", "000"}, {"1E2", "100"}, {"1,5", "000"}, {"0009", "009"},
             {"a.b", "000"}, {"\t7", "007"}, {"a", ""},     {"1 2", ""},    {"--7", ""},    {"-0012", "000"},
             {"E7", ""},     {"7E", ""},     {"\t", ""},    {"7x", ""}};
  for (const auto& [cellule, dat] : cas) {
    const Fin fin = Importer(Joindre({"AAA;BBB;CCC\n1;", cellule, ";1\n1;100;1\n"}));
    EXPECT_EQ(fin, dat.empty() ? Fin::Arret : Fin::Normale) << cellule;
    if (!dat.empty()) EXPECT_EQ(Lire("ENQ.DAT"), Joindre({"1", dat, "1\r\n1", "100", "1\r\n"})) << cellule;
    else EXPECT_NE(montre_.find("notez le numero =  13 Incompatibilit"), std::string::npos) << cellule;
  }
}

// Lines of the file, whatever stands before: the report has no words for the place, the failure carries it.
TEST_F(RunImport, AFailureTellsItsPlace) {
  std::string panne;
  dialogue_.afficher = [&](const Affichage& affichage) { panne = affichage.panne; };
  const struct {
    std::string_view csv, lieu;
  } cas[] = {{"NUM;AAA\n1;2\n2;x\n3;y\n", "(ENQ.CSV, ligne 3, colonne 2)"},
             {"\n\nNUM;AAA\n\n1;2\n;\n2;x\n", "(ENQ.CSV, ligne 7, colonne 2)"},
             {"NUM;AAA;BBB\n1;\"\n\";3\n2;2;3\n3;z;3\n", "(ENQ.CSV, ligne 5, colonne 2)"},
             {"NUM;AAA;BBB\n1;2;3\n2;3;1e999\n", "(ENQ.CSV, ligne 3, colonne 3)"},
             {"", "(ENQ.CSV)"}};
  for (const auto& [csv, lieu] : cas) {
    panne.clear();
    Importer(csv);
    EXPECT_TRUE(panne.ends_with(lieu)) << csv << panne;
  }
}

TEST_F(RunImport, DecimalsInAColumnOfCodesAreTold) {
  Importer("NUM;SEX;REV;TPS\n1;1;5;12.75\n2;2;1.5;3\n3;2;1,2;4\n");
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("colonnes de codes : 2 dans la colonne 3 (REV)"), std::string::npos) << boites_[0];
  EXPECT_EQ(boites_[0].find("TPS"), std::string::npos);  // a wide column keeps its numbers
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
  EXPECT_EQ(Lire("ENQ.DAT"), "12\r\n3\r\n");
  EXPECT_EQ(Importer("A;B\r\n1;2;3\r\n\x1A"), Fin::Normale);  // more cells than titles
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 1 \r\n  B   2 2\r\nXXX   3 3\r\n") << "column 1 holds the number of individuals";
  EXPECT_EQ(Importer("NUM;TTT\n"), Fin::Normale);  // titles only
  EXPECT_EQ(Lire("ENQ.DAT"), "");
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 0 \r\n");
}

TEST_F(RunImport, TheWidthInDatIsTheOneThatPosTells) {
  const struct {
    std::string_view cellules, dat, pos;  // one column beside "1"; code-max from column 8 of its .POS line
  } cas[] = {{"01 02 03", "1 2 3", " 3"},
             {"007 008 012", "07 08 12", "12"},
             {"0001 0100 0020", "001 100 020", "L3"},
             {"-3 2 -1", "0 2 0", " 2"},
             {"1,5 2 3", "0 2 3", " 3"},
             {"00 00 00", "0 0 0", ""},
             {"01000 75001 13001", "01000 75001 13001", ""},
             {"0012 abc 1", "0012  abc    1", ""}};
  for (const auto& [cellules, dat, pos] : cas) {
    std::string csv = "ZZZ;VAL Valeur;FIN\n";
    std::string attendu;
    std::string_view reste = dat;
    const std::size_t largeur = (dat.size() + 1) / 3 - 1;
    for (std::string_view suite = cellules; !suite.empty(); reste.remove_prefix(std::min(largeur + 1, reste.size()))) {
      const std::size_t fin = std::min(suite.find(' '), suite.size());
      csv += Joindre({"1;", suite.substr(0, fin), ";1\n"});
      attendu += Joindre({"1", reste.substr(0, largeur), "1\r\n"});
      suite.remove_prefix(std::min(fin + 1, suite.size()));
    }
    EXPECT_EQ(Importer(csv), Fin::Normale) << cellules;
    EXPECT_EQ(Lire("ENQ.DAT"), attendu) << cellules;
    const std::string ligne = pos.empty() ? std::string() : Joindre({"VAL   2", pos, " $VAL Valeur$\r\n"});
    EXPECT_EQ(Lire("ENQ.POS"),
              Joindre({"ENQ\r\n 3 \r\nZZZ   1 1\r\n", ligne, "FIN", EntierDroit(double(largeur) + 2, 4), " 1\r\n"}))
        << cellules;
  }
  Importer("ZZZ;VAL Valeur\n1;-3\n1;-1\n1;2\n");
  EXPECT_NE(
      Lire("ENQ.IMP").find("*** Attention : 2 valeur(s) négative(s) comptée(s) pour 0 à la colonne 2 VAL Valeur\r\n"_w),
      std::string::npos);
}

TEST_F(RunImport, RowsThatHoldNothingAreNoIndividuals) {
  const struct {
    std::string_view lignes;
    int vides;
  } cas[] = {{"1;5\n2;6\n3;7\n", 0},
             {"1;5\n;\n2;6\n\n3;7\n", 2},
             {"1;5\n2;6\n3;7\n\n  \n", 0},
             {"1;5\n \n2;6\n3;7\n;\n\n", 2},
             {"1;5\n\"\";\" \"\n2;6\n3;7", 1}};
  for (const auto& [lignes, vides] : cas) {
    EXPECT_EQ(Importer(Joindre({"Q;A\n", lignes})), Fin::Normale);
    EXPECT_EQ(Lire("ENQ.DAT"), "15\r\n26\r\n37\r\n") << lignes;
    EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 3 \r\n  A   2 7\r\n") << "column 1 stays the number " << lignes;
    const std::string dit =
        Joindre({"*** Attention :", " ", std::to_string(vides), " ", "ligne(s) sans aucune valeur"});
    EXPECT_EQ(Lire("ENQ.IMP").find(vides > 0 ? std::string_view(dit) : "***") != std::string::npos, vides > 0)
        << lignes;
  }
}

TEST_F(RunImport, BlankLinesAreNoTitles) {
  EXPECT_EQ(Importer("\n  \nNUMERO;AGE\n1;5\n2;6\n3;7\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), "15\r\n26\r\n37\r\n");
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 3 \r\nAGE   2 7\r\n");
  EXPECT_NE(montre_.find(" 2 ligne(s) sans aucune valeur"), std::string::npos) << montre_;
}

TEST_F(RunImport, AQuotedFieldSpansLines) {
  EXPECT_EQ(Importer("ZZZ;\"SEX Sexe de\r\nla personne\"\n1;2\n1;1\n1;1\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 3 \r\nZZZ   1 1\r\nSEX   2 2 $SEX Sexe de la personne$\r\n");
  EXPECT_EQ(Importer("ZZZ;AVI;SEX\n1;\"bon;\n\nou pas\";2\n1;\"a \"\"b\"\"\";1\n1;x;1\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), "1bon;  ou pas2\r\n1       a \"b\"1\r\n1           x1\r\n");
  EXPECT_EQ(Importer("ZZZ;AVI;SEX\n1;abcd;2\n1;\"jamais fermé;1\n1;efgh;1\n"_w.data()), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), "1          abcd2\r\n1jamais fermé;1\r\n1          efgh1\r\n"_w)
      << "a quote that nothing closes runs to the end of its line";
}

TEST(NommerTitres, AllDifferent) {
  const struct {
    std::vector<std::string> intitules, noms;
  } cas[] = {{{"SEX", "AGE age", "W1"}, {"SEX", "AGE", " W1"}},
             {{"Q1_1", "Q1_2", "Q2"}, {"Q11", "Q12", " Q2"}},
             {{"Q1_1", "Q1_10", "Q11"}, {"Q12", "Q13", "Q11"}},
             {{"Lecture", "Lectorat", "Le1"}, {"Le2", "Le3", "Le1"}},
             {{"", "", "XX1"}, {"XX2", "XX3", "XX1"}},
             {{"W1", " W1"}, {"W1X", "W11"}},
             {{"Sex", "SEX", "Sea"}, {"Se1", "SE2", "Sea"}},
             {{"$$$ revenu", "**", "A$B", "   D"}, {"rev", "XXX", "ABX", "DXX"}}};
  for (const auto& [intitules, noms] : cas) {
    std::vector<Titre> titres;
    for (const std::string& intitule : intitules) titres.push_back({intitule});
    std::vector<std::string> obtenus;
    for (const NomCourt& nom : NommerTitres(titres)) obtenus.push_back(nom.nom);
    EXPECT_EQ(obtenus, noms) << intitules[0];
  }
}

TEST_F(RunImport, SecondImportKeepsTheHandEditedCopy) {
  Ecrire("ENQ.POS", "A LA MAIN\n1\nAAA   1 2\n");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Importer(i % 2 ? "AAA;BBB\n1;2\n1;1\n" : "AAA\n1\n2\n3\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO3"), "A LA MAIN\r\n1\r\nAAA   1 2\r\n");
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
  EXPECT_TRUE(Lire("ENQ.POS").ends_with("9999 5 $Q9998$\r\n")) << "behind it positions have more than four digits";
  EXPECT_NE(Lire("ENQ.IMP").find("à partir de la colonne 10000 la position dépasse 9999"_w), std::string::npos);
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
