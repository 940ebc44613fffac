#include <gtest/gtest.h>

#include <QComboBox>
#include <QPushButton>

#include "forms/pilote.h"

namespace {

using essai::Bureau;

TEST(Principal, PremierDemarrageSansDonnees) {
  Bureau bureau;
  bureau.Ouvrir();
  EXPECT_TRUE(bureau.Texte().startsWith("Pas de fichier ouvert\n\nPour une première utilisation"));
  EXPECT_TRUE(
      bureau.Fenetre().windowTitle().startsWith("Pas de générique en cours, niveau d'utilisateur non déterminé"));
}

TEST(Principal, TriAPlatDepuisLeMenu) {
  Bureau bureau(true);
  bureau.Ecrire("qvr2.ini", "ENQ\r\n 1 \r\n");
  bureau.Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$\r\n");
  bureau.Ecrire("ENQ.DAT", "1\r\n2\r\n1\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(bureau.Texte().contains("Question SEX Position    1"));
  EXPECT_EQ(bureau.Controle<QLabel>("FichAff").text(), "ENQ.TAP");
}

}  // namespace
