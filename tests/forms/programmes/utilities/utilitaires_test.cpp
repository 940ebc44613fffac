#include "forms/programmes/utilities/utilitaires.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "forms/images/fenetredessin.h"
#include "forms/images/vuedessin.h"
#include "forms/pilote.h"
#include "forms/programmes/factor/profilmod.h"
#include "forms/programmes/tables/graphe.h"
#include "forms/programmes/utilities/exportcsv.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Cliquer;
using essai::Etiquette;
using essai::Pilote;

class FormesUtilitaires : public testing::Test {
 protected:
  FormesUtilitaires() : bureau_(2) {
    bureau_.Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nAGE   1 9 $Age$\r\nSEX   2 9\r\n");
    bureau_.Ecrire("ENQ.DAT", "12\r\n21\r\n12\r\n");
    bureau_.Ecrire("ENQ.MOD",
                   "ENQ\r\n LIGN=2 COL=4 FMT=2\r\nAGE1   jeunes\r\nAGE2   vieux\r\nSEX1   hommes\r\nSEX2   femmes\r\n");
    bureau_.Ecrire("ENQ.BRT", "OUV  1 2 3 4\r\nCAD  4 3 2 1\r\n");
    bureau_.Ecrire("A.TXT", "b1\r\na2\r\n");
    bureau_.Ecrire("ENQ.TRG",
                   "Titre\r\nUn\r\nDeux\r\nTrois\r\nAGE1 20.0 30.0 50.0jeunes\r\nAGE2 60.0 30.0 10.0vieux\r\n");
    bureau_.Ouvrir();
  }
  static void Taper(const QWidget& forme, const char* champ, const QString& texte) {
    Bureau::Dans<QLineEdit>(forme, champ).setText(texte);
  }

  Bureau bureau_;
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

TEST_F(FormesUtilitaires, AProfileIsChosenRunAndDrawn) {
  ProfilMod& forme = bureau_.Demander<ProfilMod>("mnuProfil");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(Bureau::Dans<QLabel>(forme, "TextMsg").text(), "Aucune modalité n'a été choisie");
  auto& liste = Bureau::Dans<QListWidget>(forme, "ListSuppl");
  Taper(forme, "Recherche", "jeu");
  EXPECT_FALSE(liste.item(0)->isHidden());
  EXPECT_TRUE(liste.item(1)->isHidden());
  QTest::keyClick(&liste, Qt::Key_Space);
  liste.item(3)->setSelected(true);
  EXPECT_EQ(Bureau::Dans<QLineEdit>(forme, "ChoixMod").text(), "AGE1 SEX2");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(bureau_.Texte().contains("\nProfil de la modalité SEX2 femmes\n"));
  EXPECT_TRUE(QString::fromStdString(bureau_.Lire("ENQ.MOD")).contains("LIGN=2 COL=4 LA=2  MOD=AGE1~SEX2\r\n"));
  auto* image = bureau_.Forme<FenetreDessin>();
  ASSERT_NE(image, nullptr);
  essai::VerifierControles(*image);
  EXPECT_EQ(Bureau::Dans<QComboBox>(*image, "ListPages").count(), 2);
  EXPECT_FALSE(Bureau::Dans<VueDessin>(*image, "Pict2").Contenu().Formes().empty());
}

TEST_F(FormesUtilitaires, AProfileGivenUpSaysSo) {
  ProfilMod& forme = bureau_.Demander<ProfilMod>("mnuProfil");
  Cliquer(forme, "BoutQuitter");
  EXPECT_EQ(bureau_.Texte(), "Arrêt volontaire du programme\n");
}

TEST_F(FormesUtilitaires, TheTriangleFollowsItsControls) {
  Graphe& forme = bureau_.Demander<Graphe>("mnuTriang");
  EXPECT_EQ(forme.windowTitle(), "Graphique non encore enregistré");
  const auto& vue = Bureau::Dans<VueDessin>(forme, "Pict2");
  const auto textes = [&vue] {
    QStringList liste;
    for (const quelvar::Forme& f : vue.Contenu().Formes())
      if (f.genre == quelvar::GenreForme::Texte) liste << QString::fromStdString(f.texte);
    return liste;
  };
  EXPECT_TRUE(textes().contains("AGE1"));
  const auto place = [&vue](const char* texte) {
    for (const quelvar::Forme& f : vue.Contenu().Formes())
      if (f.genre == quelvar::GenreForme::Texte && f.texte == texte) {
        const quelvar::Zone zone = vue.Contenu().Etendue(f);
        return vue.VersVue(QPointF(zone.x + zone.largeur / 2, zone.y + zone.hauteur / 2)).toPoint();
      }
    return QPoint();
  };
  for (const char* texte : {"AGE1", "Titre", "Deux"}) {  // a label, the title, a vertex
    const QPoint avant = place(texte);
    QTest::mousePress(vue.viewport(), Qt::LeftButton, {}, avant);
    QTest::mouseMove(vue.viewport(), avant + QPoint(20, 10));
    QTest::mouseMove(vue.viewport(), avant + QPoint(40, 25));
    QTest::mouseRelease(vue.viewport(), Qt::LeftButton, {}, avant + QPoint(40, 25));
    EXPECT_LE((place(texte) - avant - QPoint(40, 25)).manhattanLength(), 2) << texte;
  }
  Cliquer(forme, "CheckLong");
  EXPECT_TRUE(textes().contains("jeunes"));
  Bureau::Dans<QListWidget>(forme, "ListVar").setCurrentRow(4);
  Cliquer(forme, "Check2");
  EXPECT_FALSE(textes().contains("jeunes"));
  Cliquer(forme, "BtFort");
  Cliquer(forme, "BoutonBp");
  Cliquer(forme, "BoutonDp");
  EXPECT_TRUE(textes().contains("vieux"));
  for (int i = 0; i < 3; ++i) Cliquer(forme, "BoutonBp");
  EXPECT_FALSE(textes().contains("vieux"));
  Cliquer(forme, "BoutonRAZ");
  EXPECT_TRUE(textes().contains("AGE1"));
  pilote_.Cliquer("OK");
  Cliquer(forme, "BoutonEnreg");
  EXPECT_TRUE(bureau_.Existe("ENQTrg.bmp"));
  EXPECT_EQ(forme.windowTitle(), "ENQTrg.bmp");
  Cliquer(forme, "BoutonQuitter");
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n"));
}

}  // namespace
