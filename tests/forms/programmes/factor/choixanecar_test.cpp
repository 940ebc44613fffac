#include "forms/programmes/factor/choixanecar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "core/texte/texte.h"
#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Champ;
using essai::Cliquer;
using essai::Taper;
using essai::Visible;
using namespace quelvar;

// Four modalities and eight people behind their Burt table; the generic AUT is a plain table of 3 x 3.
class FormeAnecar : public testing::Test {
 protected:
  FormeAnecar() {
    bureau_.Ecrire("ENQ.MOD",
                   "Essai\r\n BRT=1 LIGN=12 LSUP=8 COL=4 FMT=1 CDG=1\r\nA1     Oui\r\nA2     Non\r\nB1\r\nB2\r\n");
    bureau_.Ecrire("ENQ.BRT",
                   "A1  4031\r\nA2  0413\r\nB1  3140\r\nB2  1304\r\n1   1010\r\n2   1010\r\n3   1010\r\n4   1001\r\n"
                   "5   0110\r\n6   0101\r\n7   0101\r\n8   0101\r\n");
    bureau_.Ecrire("ENQ.CDG",
                   "1   1010\r\n2   1010\r\n3   1010\r\n4   1001\r\n5   0110\r\n6   0101\r\n7   0101\r\n8   0101\r\n");
    bureau_.Ecrire("ENQ.POS", "ENQ\r\n 8 \r\n");
    bureau_.Ecrire("AUT.POS", "AUT\r\n 60 \r\n");
    bureau_.Ecrire("AUT.MOD", "Autre\r\n LIGN=3 FMT=3\r\nX\r\nY\r\nZ\r\n");
    bureau_.Ecrire("AUT.BRT", "L1   20  5  1Ouvriers\r\nL2    4 20  4Cadres\r\nL3    1  5 20Autres\r\n");
  }
  ChoixAnecar& Ouvrir(const char* menu = "mnuAnecar") { return bureau_.Demander<ChoixAnecar>(menu); }
  void ChoisirGenerique(const QString& generique) {
    ASSERT_TRUE(bureau_.Fenetre().ServicesDesFormes().accepterGenerique(generique));
  }
  bool Rapporte(const char* texte) { return bureau_.Texte().contains(QString::fromUtf8(texte)); }

  Bureau bureau_{2};
};

constexpr const char* kDetails[] = {"CaseCDG", "Inv1", "Inv2", "Inv3", "TriEdit", "ChkCAH"};

TEST_F(FormeAnecar, ParDefautTablesCompactesDeTroisFacteurs) {
  ChoisirGenerique("AUT");
  const ChoixAnecar& forme = Ouvrir();
  EXPECT_EQ(forme.windowTitle(), "Choix des parmètres de l'analyse factorielle");
  for (const char* nom : kDetails) EXPECT_FALSE(Visible(forme, nom)) << nom;
  EXPECT_FALSE(Visible(forme, "frmSiTrié"));
  EXPECT_FALSE(Visible(forme, "FrWard"));
  EXPECT_EQ(Champ(forme, "TextBoxNbFact"), "3");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(bureau_.Forme<ChoixAnecar>(), nullptr);
  EXPECT_TRUE(Rapporte("AFC : Analyse des correspondances"));
  EXPECT_TRUE(Rapporte("Le nombre de facteurs a extraire est de  2\n")) << "three columns have two factors";
  EXPECT_TRUE(Rapporte("ACT.    F=1  CPF    F=2  CPF\n"));
  EXPECT_FALSE(Rapporte("Le seuil d'edition"));
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n"));
}

TEST_F(FormeAnecar, LEditionTrieeOuvreSesSeuils) {
  ChoisirGenerique("AUT");
  const ChoixAnecar& forme = Ouvrir("mnuAnecarText");
  Cliquer(forme, {"optACP", "optTrié"});
  EXPECT_TRUE(Visible(forme, "frmSiTrié"));
  EXPECT_EQ(Champ(forme, "TextBoxCTRL"), "Moyenne");
  EXPECT_EQ(Champ(forme, "TextBoxCTRC"), "Moyenne");
  Cliquer(forme, "CaseLignes");
  Taper(forme, "TextBoxCTRL", "450");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(Rapporte("ACP : Analyse en composantes principales des ecarts"));
  EXPECT_TRUE(Rapporte("Le seuil d'edition des lignes est de  450 \nLe seuil d'edition des colonnes est de  333 \n"));
  EXPECT_TRUE(Rapporte("Facteur  1 Impression des lignes   actives du tableau\n"));
}

TEST_F(FormeAnecar, LesSeuilsReviennentALaMoyenneEtLesLignesNeSontQueDesListes) {
  ChoisirGenerique("AUT");
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, {"optTrié", "CaseLignes"});
  Taper(forme, "TextBoxCTRC", "0");
  Cliquer(forme, {"optCompact", "optTrié"});
  EXPECT_EQ(Champ(forme, "TextBoxCTRC"), "Moyenne");
  Cliquer(forme, {"optCompact", "BoutEnreg"});
  EXPECT_FALSE(Rapporte("Le seuil d'edition"));
}

TEST_F(FormeAnecar, LEditionEtendueMontreSesOptionsEtLesPasseAuProgramme) {
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, "optDetails");
  for (const char* nom : kDetails) EXPECT_TRUE(Visible(forme, nom)) << nom;
  EXPECT_FALSE(Visible(forme, "FrWard"));
  Taper(forme, "TextBoxNbFact", "1");
  EXPECT_TRUE(Visible(forme, "LibelleMinimum"));
  EXPECT_EQ(Bureau::Dans<QLabel>(forme, "LibelleMinimum").text(), "Valeur minimum 2");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(Rapporte("Le nombre de facteurs a extraire est de  2\n"));
  EXPECT_TRUE(Rapporte("ACT.  QLT!   F=1 COS2  CPF!   F=2 COS2  CPF!\n"));
  Taper(Ouvrir(), "TextBoxNbFact", "2");
  EXPECT_FALSE(Visible(*bureau_.Forme<ChoixAnecar>(), "LibelleMinimum"));
}

TEST_F(FormeAnecar, InversionsClassificationEtCodageLogiqueArriventAuProgramme) {
  Cliquer(Ouvrir(), {"optDetails", "BoutEnreg"});
  const std::string droit = bureau_.Lire("ENQ.FJ2");
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, {"optDetails", "Inv1", "Inv3"});
  essai::Pilote pilote;
  EXPECT_TRUE(essai::CommandeMontree(pilote, forme).endsWith(" edition=etendue inversions=1,3"));
  Cliquer(forme, {"Inv3", "BoutEnreg"});
  // Factor 1 of the first modality: columns 10 to 21.
  EXPECT_DOUBLE_EQ(std::stod(bureau_.Lire("ENQ.FJ2").substr(9, 12)), -std::stod(droit.substr(9, 12)));
  Cliquer(Ouvrir(), {"optDetails", "CaseCDG", "ChkCAH", "OptW2", "IndivCAH", "ImprAgr", "BoutEnreg"});
  EXPECT_TRUE(Rapporte("Le nombre total de  lignes  du tableau est de  8 \n"));
  EXPECT_TRUE(bureau_.Texte().contains(QStringLiteral("Méthode Ward 2 \n"))) << bureau_.Texte().toStdString();
  EXPECT_TRUE(bureau_.Lire("ENQ.CAH").starts_with("INDIV = OUI\r\n"));
  EXPECT_TRUE(bureau_.Existe("ENQ.CSV"));
}

TEST_F(FormeAnecar, CeQuiEstCacheNePrendPasPartALAnalyse) {
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, {"optDetails", "CaseCDG", "ChkCAH", "TriEdit", "CaseLignes2"});
  EXPECT_TRUE(Visible(forme, "FrWard"));
  EXPECT_EQ(Champ(forme, "TextBoxNbFact"), "5");
  Cliquer(forme, "optCompact");
  for (const char* nom : kDetails) EXPECT_FALSE(Visible(forme, nom)) << nom;
  EXPECT_FALSE(Visible(forme, "FrWard"));
  EXPECT_FALSE(Visible(forme, "frmSiTrié"));
  EXPECT_EQ(Champ(forme, "TextBoxNbFact"), "3");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(Rapporte("Le nombre total de  lignes  du tableau est de  12 \n"));
  EXPECT_FALSE(bureau_.Existe("ENQ.CAH"));
}

TEST_F(FormeAnecar, TriDeLEditionEtendue) {
  ChoisirGenerique("AUT");
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, {"optDetails", "TriEdit", "CaseLignes2"});
  EXPECT_FALSE(Visible(forme, "CaseLignes")) << "one box for the rows is enough";
  Taper(forme, "TextBoxCTRC", "999");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(Rapporte("Le seuil d'edition des lignes est de  333 \nLe seuil d'edition des colonnes est de  999 \n"));
  EXPECT_TRUE(Rapporte("Impression des lignes   actives du tableau\n"));
}

TEST_F(FormeAnecar, ChaqueClicSurLaClassificationRemetCinqFacteurs) {
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, "optDetails");
  for (int clic = 0; clic < 2; ++clic) {
    Taper(forme, "TextBoxNbFact", "4");
    Cliquer(forme, "ChkCAH");
    EXPECT_EQ(Champ(forme, "TextBoxNbFact"), "5");
    EXPECT_EQ(Visible(forme, "FrWard"), clic == 0);
  }
}

TEST_F(FormeAnecar, AuNiveau1LAnalysePartAussitot) {
  bureau_.Ecrire("qvr2.ini", "AUT\r\n 1 \r\n");
  bureau_.Ouvrir();
  bureau_.Menu("mnuAnecar");
  EXPECT_EQ(bureau_.Forme<ChoixAnecar>(), nullptr);
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n")) << bureau_.Texte().toStdString();
}

TEST_F(FormeAnecar, SansTableauLeRapportLeDitEtAucuneFormeNeSOuvre) {
  std::filesystem::remove(bureau_.Dossier() / "ENQ.BRT");
  bureau_.Ouvrir();
  bureau_.Menu("mnuAnecar");
  EXPECT_EQ(bureau_.Forme<ChoixAnecar>(), nullptr);
  EXPECT_TRUE(Rapporte("Le fichier ENQ.BRT n'existe pas\nArret du programme car absence de donnees\n"));
}

TEST_F(FormeAnecar, SansCodageLogiqueUneBoiteArreteLAnalyse) {
  std::filesystem::remove(bureau_.Dossier() / "ENQ.CDG");
  const ChoixAnecar& forme = Ouvrir();
  Cliquer(forme, {"optDetails", "CaseCDG"});
  essai::Pilote pilote;
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(pilote.Vues(), QStringList{"Le fichier en codage logique n'existe pas, vérifiez et relancez"});
}

TEST_F(FormeAnecar, AnnulerMontreLeRapportDeLaPreparation) {
  Cliquer(Ouvrir(), "BoutAnnul");
  EXPECT_EQ(bureau_.Forme<ChoixAnecar>(), nullptr);
  EXPECT_TRUE(bureau_.Texte().endsWith("Le nom du fichier des noms de modalites est ENQ.MOD\n"));
  EXPECT_FALSE(bureau_.Existe("ENQ.AFC"));
}

TEST_F(FormeAnecar, LAnalyseResteCelleDuGeneriqueOuvert) {
  const ChoixAnecar& forme = Ouvrir();
  ChoisirGenerique("AUT");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(bureau_.Existe("ENQ.AFC"));
  EXPECT_FALSE(bureau_.Existe("AUT.AFC"));
}

TEST_F(FormeAnecar, AuClavier) {
  ChoisirGenerique("AUT");
  ChoixAnecar& forme = Ouvrir();
  ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &forme; })) << "the menu is still open";
  QTest::keyClick(&forme, Qt::Key_T, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Visible(forme, "frmSiTrié"); }));
  QTest::keyClick(&forme, Qt::Key_O, Qt::AltModifier);  // the label of a threshold gives it the focus
  EXPECT_EQ(forme.focusWidget()->objectName(), "TextBoxCTRC");
  QStringList ordre;
  Bureau::Dans<QWidget>(forme, "optTrié").setFocus();
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(forme.focusWidget(), Qt::Key_Tab);
    ordre << forme.focusWidget()->objectName();
  }
  EXPECT_EQ(ordre, (QStringList{"CaseLignes", "TextBoxCTRL", "TextBoxCTRC", "BoutCommande"}));
  QTest::keyClick(&forme, Qt::Key_Return);
  EXPECT_TRUE(Rapporte("Le seuil d'edition des colonnes est de  333 \n"));
}

}  // namespace
