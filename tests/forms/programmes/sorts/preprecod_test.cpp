#include "forms/programmes/sorts/preprecod.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "forms/pilote.h"
#include "forms/programmes/sorts/choixrecodage.h"

using namespace quelvar::forms;

namespace {

using essai::Actif;
using essai::Bureau;
using essai::BureauDe;
using essai::Cliquer;
using essai::Coche;
using essai::Etiquette;
using essai::Pilote;
using quelvar::forms::PrepRecod;

class FormeRecodage : public testing::Test {
 protected:
  FormeRecodage()
      : bureau_(2, {{"ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$\r\nAGE   212 $Age$\r\nLEC   4 2\r\n"},
                    {"ENQ.DAT", "1 31\r\n2122\r\n1 71\r\n"}}) {}
  PrepRecod& Ouvrir() { return bureau_.Demander<PrepRecod>("mnuPrepRecod"); }
  static void Question(const QWidget& forme, int rang) {
    Bureau::Dans<QListWidget>(forme, "ListPos").setCurrentRow(rang);
  }
  // Takes a code of the list as a user does.
  static void Code(const QWidget& forme, const char* liste, int code) {
    auto& codes = Bureau::Dans<QComboBox>(forme, liste);
    ASSERT_TRUE(codes.view()->isVisible()) << "the codes are offered at once";
    QTest::keyClick(codes.view(), Qt::Key_Home);
    for (int pas = codes.findData(code); pas > 0; --pas) QTest::keyClick(codes.view(), Qt::Key_Down);
    QTest::keyClick(codes.view(), Qt::Key_Return);
  }

  BureauDe bureau_;
};

TEST_F(FormeRecodage, RulesFilterAndVitReachThePosAndTheRecoding) {
  PrepRecod& forme = Ouvrir();
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("Cette fenêtre prépare 4 opérations"));
  Cliquer(forme, "BoutEnCours");
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "Cliquer sur une question à recoder")
      << "no question is taken before one is chosen";
  Question(forme, 1);
  auto& regle = Bureau::Dans<QLineEdit>(forme, "TextMod");
  regle.setText("1-6=1/5=2");
  QTest::keyClick(&regle, Qt::Key_Return);
  EXPECT_TRUE(Etiquette(forme, "TextMsg").endsWith("***Attention erreur à corriger***"));
  regle.setText("1-6=1/7-12=2");
  QTest::keyClick(&regle, Qt::Key_Return);
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "La question est validée");

  Question(forme, 0);
  Cliquer(forme, "OptIncl");
  Cliquer(forme, "ChoixFiltre");
  Code(forme, "ComboGen", 1);
  EXPECT_EQ(Bureau::Dans<QLineEdit>(forme, "TextFiltre").text(), "INCL SEX=1");
  Cliquer(forme, "ValidFiltre");

  Pilote pilote;
  pilote.Taper("CUL");
  Cliquer(forme, "OptVITNouv");
  Question(forme, 2);
  Cliquer(forme, "ChkVITAv");
  Cliquer(forme, "ChoixVIT");
  pilote.Taper("2");
  Code(forme, "ComboVIT", 1);
  Cliquer(forme, "ValidVIT");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(bureau_.Forme<PrepRecod>(), nullptr);
  EXPECT_EQ(bureau_.Lire("ENQ.POS"),
            "ENQ\r\n3 INCL SEX=1 \r\nSEX   1 2 $Sexe$\r\nAGE   212 1-6=1/7-12=2$Age$\r\nLEC   4 2 \r\n$$CUL\r\n"
            "LEC     1 2\r\n$$\r\n");

  bureau_.Menu("mnuOutils");
  pilote.Taper("SUITE");
  Cliquer(*bureau_.Forme<ChoixRecodage>(), "BoutonTriapl");
  EXPECT_EQ(bureau_.Lire("SUITE.DAT"), "11X12\r\n12X12\r\n");
  EXPECT_EQ(bureau_.Fenetre().ServicesDesFormes().session.generique, "SUITE");
  EXPECT_EQ(bureau_.Fenetre().ServicesDesFormes().session.ancien, "ENQ");
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n"));
}

TEST_F(FormeRecodage, LeavingWithChangesIsAskedOnce) {
  PrepRecod& forme = Ouvrir();
  Question(forme, 0);
  Cliquer(forme, "ValidPond");
  Pilote pilote;
  pilote.Cliquer("Annuler");
  Cliquer(forme, "BoutQuitter");
  EXPECT_TRUE(forme.isVisible());
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutQuitter");
  EXPECT_TRUE(pilote.Vues().last().startsWith("Vous avez fait des modifications"));
  EXPECT_EQ(bureau_.Forme<PrepRecod>(), nullptr);
  EXPECT_FALSE(QString::fromStdString(bureau_.Lire("ENQ.POS")).contains("POND"));
}

TEST_F(FormeRecodage, ATypedRuleIsTakenInOrRefusedAloud) {
  PrepRecod& forme = Ouvrir();
  Question(forme, 1);
  auto& regle = Bureau::Dans<QLineEdit>(forme, "TextMod");
  regle.setText("1=");
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(forme.isVisible());
  EXPECT_TRUE(Etiquette(forme, "TextMsg").endsWith("***Attention erreur à corriger***"));
  Question(forme, 0);
  EXPECT_EQ(regle.text(), "1=") << "the question whose rule is refused stays the current one";
  regle.setText("1=2");
  Pilote pilote;
  pilote.Cliquer("Annuler");
  Cliquer(forme, "BoutQuitter");
  EXPECT_TRUE(forme.isVisible()) << "typed is work";
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(QString::fromStdString(bureau_.Lire("ENQ.POS")).contains("1=2$Age$"));
}

TEST_F(FormeRecodage, AFilterAndAVitThatAreShownAreTakenInOrRefusedAloud) {
  PrepRecod& forme = Ouvrir();
  Question(forme, 0);
  Cliquer(forme, "OptIncl");
  Cliquer(forme, "ChoixFiltre");
  Bureau::Dans<QComboBox>(forme, "ComboGen").hidePopup();
  Pilote pilote;
  pilote.Cliquer("Annuler");
  Cliquer(forme, "BoutQuitter");
  EXPECT_TRUE(forme.isVisible()) << "what is shown is work";
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(forme.isVisible());
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("Le filtre affiché est incomplet"));
  Cliquer(forme, "ChoixFiltre");
  Code(forme, "ComboGen", 2);
  pilote.Abandonner();
  Cliquer(forme, "OptVITNouv");
  EXPECT_FALSE(Coche(forme, "OptVITNouv"));
  pilote.Taper("CUL");
  Cliquer(forme, "OptVITNouv");
  Cliquer(forme, "ChoixVIT");
  Code(forme, "ComboVIT", 1);
  pilote.Abandonner();
  Cliquer(forme, "ChkVITAv");
  Cliquer(forme, "ChoixVIT");
  Code(forme, "ComboVIT", 2);
  Cliquer(forme, "OptVITModif");
  EXPECT_EQ(Bureau::Dans<QPlainTextEdit>(forme, "TextVIT").toPlainText(), "$$CUL\nSEX     1\nSEX")
      << "a cancelled score takes the code with it";
  Bureau::Dans<QPlainTextEdit>(forme, "TextVIT").setPlainText("$$CUL\nSEX     1\nLEC     2");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(bureau_.Forme<PrepRecod>(), nullptr);
  EXPECT_EQ(bureau_.Lire("ENQ.POS"),
            "ENQ\r\n3 INCL SEX=2 \r\nSEX   1 2 $Sexe$\r\nAGE   212 $Age$\r\nLEC   4 2 \r\n$$CUL\r\nSEX     1\r\n"
            "LEC     2\r\n$$\r\n");
}

TEST_F(FormeRecodage, SavesToTheGenericThatItWasOpenedOn) {
  PrepRecod& forme = Ouvrir();
  Question(forme, 1);
  Bureau::Dans<QLineEdit>(forme, "TextMod").setText("s");
  Cliquer(forme, "BoutEnCours");
  bureau_.Ecrire("AUTRE.POS", "AUTRE\r\n 1 \r\nREV   1 9\r\n");
  Services& services = bureau_.Fenetre().ServicesDesFormes();
  Pilote pilote;
  pilote.Cliquer("Annuler");
  EXPECT_FALSE(services.accepterGenerique("AUTRE"));
  EXPECT_EQ(services.session.generique, "ENQ") << "the change of generic is given up with the question";
  services.adopterGenerique("AUTRE");  // as a program does
  pilote.Cliquer("Annuler");
  bureau_.Menu("mnuPrepRecod");
  EXPECT_EQ(bureau_.Forme<PrepRecod>(), &forme) << "what is not saved is not given up for the other generic";
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(bureau_.Lire("AUTRE.POS"), "AUTRE\r\n 1 \r\nREV   1 9\r\n");
  EXPECT_TRUE(QString::fromStdString(bureau_.Lire("ENQ.POS")).contains("AGE   212 s$Age$"));

  Ouvrir();
  bureau_.Fenetre().ServicesDesFormes().accepterGenerique("ENQ");
  EXPECT_EQ(Bureau::Dans<QListWidget>(Ouvrir(), "ListPos").count(), 3) << "opened anew on the present generic";
}

TEST_F(FormeRecodage, ARecodingAsksAboutRulesThatAreNotSaved) {
  PrepRecod& forme = Ouvrir();
  Question(forme, 1);
  Bureau::Dans<QLineEdit>(forme, "TextMod").setText("1-6=1/7-12=2");
  bureau_.Menu("mnuOutils");
  Pilote pilote;
  pilote.Cliquer("Annuler");
  Cliquer(*bureau_.Forme<ChoixRecodage>(), "BoutonTriapl");
  EXPECT_TRUE(pilote.Vues().last().startsWith("Vous avez fait des modifications"));
  EXPECT_TRUE(forme.isVisible());
  EXPECT_FALSE(bureau_.Existe("SUITE.DAT"));
  EXPECT_EQ(bureau_.Fenetre().ServicesDesFormes().session.generique, "ENQ");
  Cliquer(forme, "BoutEnreg");
  pilote.Taper("SUITE");
  Cliquer(*bureau_.Forme<ChoixRecodage>(), "BoutonTriapl");
  EXPECT_EQ(bureau_.Lire("SUITE.DAT"), "11X1\r\n22X2\r\n12X1\r\n");
}

TEST_F(FormeRecodage, OptionsOfTheRecodingExcludeEachOther) {
  bureau_.Menu("mnuOutils");
  const ChoixRecodage& options = *bureau_.Forme<ChoixRecodage>();
  EXPECT_EQ(options.windowTitle(), "Options du recodage");
  EXPECT_FALSE(Actif(options, "CaseVerif"));
  Cliquer(options, "CaseRepMult");
  Cliquer(options, "CaseTriang");
  EXPECT_FALSE(Coche(options, "CaseRepMult"));
  EXPECT_FALSE(Actif(options, "CaseRepMult"));
  Cliquer(options, "CaseVerif");
  Cliquer(options, "CaseTriang");
  EXPECT_FALSE(Coche(options, "CaseVerif"));
  EXPECT_TRUE(Actif(options, "CaseRepMult"));
}

}  // namespace
