#include "forms/programmes/utilities/utilitaires.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>

#include "forms/bureauenq.h"
#include "forms/programmes/utilities/exportcsv.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Cliquer;
using essai::Etiquette;
using essai::Pilote;

class FormesUtilitaires : public testing::Test {
 protected:
  FormesUtilitaires() {
    bureau_.Ecrire("A.TXT", "b1\r\na2\r\n");
    bureau_.Ouvrir();
  }
  static void Taper(const QWidget& forme, const char* champ, const QString& texte) {
    Bureau::Dans<QLineEdit>(forme, champ).setText(texte);
  }

  essai::BureauDeTable bureau_;
  Pilote pilote_;
};

TEST_F(FormesUtilitaires, WhatIsMissingIsToldAndTheSortRuns) {
  Utilitaires& forme = bureau_.Demander<Utilitaires>("mnuUtil");
  EXPECT_EQ(forme.windowTitle(), "Programmes utilitaires");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(Etiquette(forme, "TextAide"), "Vous devez entrer le nom du fichier A à trier");
  pilote_.Choisir("A.TXT");
  Cliquer(forme, "CmdFichA");
  EXPECT_EQ(Bureau::Dans<QLabel>(forme, "LabelA").text(), "A.TXT");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(Etiquette(forme, "TextAide"), "Vous devez entrer le nom du fichier C résultant du tri");
  pilote_.Choisir("C.TXT");
  Cliquer(forme, "CmdFichC");
  Taper(forme, "TextPosTri", "1");
  Taper(forme, "TextLargTri", "1");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau_.Lire("C.TXT"), "a2\r\nb1\r\n");
  EXPECT_TRUE(bureau_.Texte().endsWith("Programme normalement terminé\n"));
}

TEST_F(FormesUtilitaires, EveryProgramLeavesALetterToEachCaption) {
  Utilitaires& forme = bureau_.Demander<Utilitaires>("mnuUtil");
  for (const char* programme :
       {"OptExport", "OptHexDump", "OptFusion", "OptGendat", "OptInvers", "OptEcapem", "OptTri"}) {
    Cliquer(forme, programme);
    essai::VerifierControles(forme);
  }
}

TEST_F(FormesUtilitaires, AnInvertedTableBecomesTheGeneric) {
  Utilitaires& forme = bureau_.Demander<Utilitaires>("mnuUtil");
  Cliquer(forme, "OptInvers");
  EXPECT_TRUE(Etiquette(forme, "TextAide").contains("ce qui était en ligne se trouve en colonne"));
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau_.Lire("ENR.BRT").substr(0, 12), "AGE1 1 4jeun");
  EXPECT_TRUE(bureau_.Fenetre().windowTitle().contains("ENR"));
}

TEST_F(FormesUtilitaires, TheSpreadsheetTakesItsOptions) {
  ExportCsv& forme = bureau_.Demander<ExportCsv>("mnexportCSV");
  Cliquer(forme, "OptTab");
  Cliquer(forme, {"OptCodes", "CheckChoix"});
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau_.Lire("ENQ.csv"), "AGE Age\tSEX\r\n1\t2\r\n2\t1\r\n1\t2\r\n");
  EXPECT_TRUE(QString::fromStdString(bureau_.Lire("ENQ.IMC")).contains("AGE Age=codes;AGE;intitule=Age;codemax=9"));
}

// What a program refuses before it starts is told in a box.
TEST(ExportCsvSansGenerique, IsRefusedInABox) {
  Bureau bureau;
  bureau.Ouvrir();
  Pilote pilote;
  pilote.Cliquer("OK");
  bureau.Menu("mnexportCSV");
  EXPECT_EQ(pilote.Vues(), QStringList("Cet utilitaire, à la différence des autres, requiert un nom générique"));
}

}  // namespace
