#include "forms/programmes/factor/profilmod.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "forms/bureauenq.h"
#include "forms/images/fenetredessin.h"
#include "forms/images/vuedessin.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Cliquer;

class FormeProfil : public testing::Test {
 protected:
  FormeProfil() { bureau_.Ouvrir(); }

  essai::BureauDeTable bureau_;
};

TEST_F(FormeProfil, AProfileIsChosenRunAndDrawn) {
  ProfilMod& forme = bureau_.Demander<ProfilMod>("mnuProfil");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(Bureau::Dans<QLabel>(forme, "TextMsg").text(), "Aucune modalité n'a été choisie");
  auto& liste = Bureau::Dans<QListWidget>(forme, "ListSuppl");
  Bureau::Dans<QLineEdit>(forme, "Recherche").setText("jeu");
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

TEST_F(FormeProfil, AListOfQuestionsIsToldAsThat) {
  const auto phrase = [&] {
    ProfilMod& forme = bureau_.Demander<ProfilMod>("mnuProfil");
    const QString texte = Bureau::Dans<QLabel>(forme, "TextMsg").text();
    Cliquer(forme, "BoutQuitter");
    return texte;
  };
  EXPECT_EQ(phrase(), "");
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n BRT=2 FMT=4\r\nSEX    Sexe\r\nAGE    Age\r\n****\r\n");
  EXPECT_TRUE(phrase().startsWith("ENQ.MOD nomme des questions, non des modalités")) << phrase().toStdString();
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n BRT=2 FMT=4\r\nSEX    Sexe\r\nAGE1   jeunes\r\n****\r\n");
  EXPECT_EQ(phrase(), "");
}

TEST_F(FormeProfil, AProfileGivenUpSaysSo) {
  ProfilMod& forme = bureau_.Demander<ProfilMod>("mnuProfil");
  Cliquer(forme, "BoutQuitter");
  EXPECT_EQ(bureau_.Texte(), "Arrêt volontaire du programme\n");
}

}  // namespace
