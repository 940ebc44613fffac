#include "forms/programmes/tables/choixecapem.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using essai::Actif;
using essai::Bureau;
using essai::BureauDe;
using essai::Cliquer;
using essai::Etiquette;
using quelvar::forms::ChoixEcapem;

class FormeEcapem : public testing::Test {
 protected:
  FormeEcapem()
      : bureau_(1, {{"ENQ.POS", "ENQ\r\n 120 \r\n"},
                    {"ENQ.MOD", "ENQ\r\n LIGN=3 COL=2 LA=3\r\nOUI    Favorable\r\nNON    Defavorable\r\n"},
                    {"ENQ.BRT", "OUV  30 10Ouvriers\r\nCAD  10 30Cadres\r\nEMP  20 20\r\n"}}) {}

  ChoixEcapem& Ouvrir(const char* entree = "mnuEcapem") { return bureau_.Demander<ChoixEcapem>(entree); }

  BureauDe bureau_;
};

TEST_F(FormeEcapem, OptionsParDefaut) {
  const ChoixEcapem& forme = Ouvrir();
  EXPECT_EQ(forme.windowTitle(), "Choix pour le PEM");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau_.Forme<ChoixEcapem>(), nullptr);
  EXPECT_TRUE(bureau_.Texte().contains("\nNombre de PEM significatifs au seuil de 10% = 2 \n"));
  EXPECT_TRUE(bureau_.Texte().contains("\n Favorable  \n 50.0      \n"));
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n"));
  EXPECT_TRUE(bureau_.Existe("ENQ.PEM"));
  EXPECT_FALSE(bureau_.Existe("ENQ.PEL"));
}

TEST_F(FormeEcapem, ChaqueOptionArriveAuProgramme) {
  const ChoixEcapem& forme = Ouvrir("mnuPEM");
  EXPECT_FALSE(Actif(forme, "OptLong"));
  EXPECT_FALSE(Actif(forme, "OptAll"));
  for (const char* nom : {"ChkIntit", "OptLong", "Opt1", "ChkRetour", "ChkPEL", "OptAll"}) Cliquer(forme, nom);
  Cliquer(forme, "Lancer");
  EXPECT_TRUE(bureau_.Texte().contains("\nNombre de PEM significatifs au seuil de 1% = 2 \n"));
  EXPECT_TRUE(bureau_.Texte().contains("\n Favo \n 50.0\n"));
  EXPECT_TRUE(bureau_.Texte().contains(" qui représente 100.0% du Phi-deux total\n"));
  EXPECT_EQ(bureau_.Lire("ENQ.PEL").size(), 3U * 8);
}

TEST_F(FormeEcapem, TousLesPemEtNomsCourts) {
  const ChoixEcapem& forme = Ouvrir();
  for (const char* nom : {"ChkIntit", "ChkK2"}) Cliquer(forme, nom);
  EXPECT_FALSE(Actif(forme, "Opt5"));
  Cliquer(forme, "Lancer");
  EXPECT_TRUE(bureau_.Texte().contains("\nNombre total de PEM positifs (significatifs ou non) = 2 \n"));
  EXPECT_TRUE(bureau_.Texte().contains("\n OUI  \n 50.0\n"));
}

TEST_F(FormeEcapem, AidesDesCases) {
  const ChoixEcapem& forme = Ouvrir();
  EXPECT_EQ(Etiquette(forme, "AideCompact"), "Seuls les écarts positifs sont pris en compte");
  EXPECT_EQ(Etiquette(forme, "AideRetour"), "Seul le tableau observé est examiné ");
  Cliquer(forme, "ChkCompact");
  EXPECT_EQ(Etiquette(forme, "AideCompact"), "Les écarts positifs et négatifs sont utilisés");
  Cliquer(forme, "ChkRetour");
  EXPECT_NE(Etiquette(forme, "AideRetour"), "Seul le tableau observé est examiné ");
}

TEST_F(FormeEcapem, CliquesAuClavier) {
  bureau_.Ecrire("ENQ.NT1", "   1: 1 2\r\n");
  ChoixEcapem& forme = Ouvrir();
  essai::Activer(forme);
  QTest::keyClick(&forme, Qt::Key_R, Qt::AltModifier);
  // A box taken by its letter is pressed for a moment before it is ticked.
  ASSERT_TRUE(QTest::qWaitFor([&] { return !Actif(forme, "ChkPEL"); }));
  QTest::keyClick(&forme, Qt::Key_Return);
  EXPECT_TRUE(bureau_.Texte().contains("Enregistrement des cliques issues de Ucinet\nFin normale"));
  EXPECT_EQ(bureau_.Lire("ENQ.PEL"), std::string("\x03\0\x04\0\0\0\xC8\x42", 8));
}

}  // namespace
