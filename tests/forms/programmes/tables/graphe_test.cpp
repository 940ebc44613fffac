#include "forms/programmes/tables/graphe.h"

#include <gtest/gtest.h>

#include <QListWidget>

#include "forms/images/vuedessin.h"
#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauDe;
using essai::Cliquer;
using essai::Pilote;

TEST(Graphe, TheTriangleFollowsItsControls) {
  BureauDe bureau(
      2, {{"ENQ.TRG", "Titre\r\nUn\r\nDeux\r\nTrois\r\nAGE1 20.0 30.0 50.0jeunes\r\nAGE2 60.0 30.0 10.0vieux\r\n"}});
  Pilote pilote;
  Graphe& forme = bureau.Demander<Graphe>("mnuTriang");
  EXPECT_EQ(forme.windowTitle(), "Graphique non encore enregistré");
  const auto& vue = Bureau::Dans<VueDessin>(forme, "Pict2");
  const auto textes = [&vue] {
    QStringList liste;
    for (const quelvar::FormeDessinee& f : vue.Contenu().Formes())
      if (f.genre == quelvar::GenreForme::Texte) liste << QString::fromStdString(f.texte);
    return liste;
  };
  EXPECT_TRUE(textes().contains("AGE1"));
  const auto place = [&vue](const char* texte) {
    for (const quelvar::FormeDessinee& f : vue.Contenu().Formes())
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
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnreg");
  EXPECT_TRUE(bureau.Existe("ENQTrg.bmp"));
  EXPECT_EQ(forme.windowTitle(), "ENQTrg.bmp");
  Cliquer(forme, "BoutonQuitter");
  EXPECT_TRUE(bureau.Texte().endsWith("Fin normale du programme\n"));
  const QString rapport = bureau.Texte();
  EXPECT_EQ(QString::fromStdString(quelvar::VersUtf8(bureau.Lire("ENQ.prt"))).remove(u'\r'), rapport);
  // One that was only looked at is told in the same words, and writes nothing.
  bureau.Ecrire("ENQ.prt", "ancien rapport\r\n");
  Cliquer(bureau.Demander<Graphe>("mnuTriang"), "BoutonQuitter");
  EXPECT_EQ(bureau.Texte(), rapport);
  EXPECT_EQ(bureau.Lire("ENQ.prt"), "ancien rapport\r\n");
}

}  // namespace
