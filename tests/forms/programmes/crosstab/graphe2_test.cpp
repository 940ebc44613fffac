// The picture of one table, by key and mouse.
#include "forms/programmes/crosstab/graphe2.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>

#include "forms/images/vuedessin.h"
#include "forms/programmes/crosstab/bureaudenquete.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauDEnquete;
using essai::Choisir;
using essai::Cliquer;
using essai::Pilote;

// One table with its picture, opened by the launch.
struct BureauDeGraphe : BureauDEnquete {
  BureauDeGraphe() {
    const ChoixVar& forme = Demande();
    Cliquer(forme, "BoutUnSeul");
    Choisir(forme, "ListVar1", {0});
    Cliquer(forme, "BoutLignePlus");
    Choisir(forme, "ListVar1", {1});
    Cliquer(forme, "BoutColPlus");
    Cliquer(forme, "BoutLancerTri");
  }
  Graphe2& Graphe() {
    Graphe2* forme = Forme<Graphe2>();
    if (forme == nullptr) throw std::runtime_error("the picture did not open");
    return *forme;
  }
};

TEST(Graphe2, TextesDeplacesEtTailles) {
  BureauDeGraphe bureau;
  const Graphe2& forme = bureau.Graphe();
  auto& vue = Bureau::Dans<VueDessin>(forme, "Pict2");
  auto& liste = Bureau::Dans<QListWidget>(forme, "ListVar");
  EXPECT_EQ(forme.windowTitle(), "Graphique non encore enregistré");
  EXPECT_EQ(liste.item(0)->text(), "Sexe et Vote");
  EXPECT_EQ(Bureau::Dans<QLabel>(forme, "Coordonnees").text().count('\n'), 1);
  const auto titre = [&] { return vue.Contenu().SurPage(vue.Contenu().Formes().front()); };
  const auto depart = titre();
  Cliquer(forme, "BtFaible");
  Cliquer(forme, "Command4");
  EXPECT_DOUBLE_EQ(titre().y, depart.y + 1);

  // The mouse takes the title itself: a click chooses it, a drag moves it.
  liste.setCurrentRow(2);
  const QPoint place = vue.VersVue(QPointF(depart.x + 10, depart.y - 2)).toPoint();
  QTest::mousePress(vue.viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(liste.currentRow(), 0);
  QTest::mouseMove(vue.viewport(), place + QPoint(30, 12));
  QTest::mouseRelease(vue.viewport(), Qt::LeftButton, {}, place + QPoint(30, 12));
  EXPECT_NEAR(titre().x, depart.x + 30 / vue.Echelle(), 0.01);

  const double largeur = vue.Contenu().Largeur();
  Cliquer(forme, "BtPlus");
  EXPECT_GT(vue.Contenu().Largeur(), largeur);
  Cliquer(forme, "BoutonRAZ");
  EXPECT_DOUBLE_EQ(vue.Contenu().Largeur(), largeur);
  EXPECT_DOUBLE_EQ(titre().x, depart.x);
}

// The line draws the picture as it came; what the mouse did since is told behind it.
TEST(Graphe2, VoirLaCommande) {
  BureauDeGraphe bureau;
  const essai::DossierTemporaire copie;
  std::filesystem::copy(bureau.Dossier(), copie.Chemin(), std::filesystem::copy_options::recursive);
  Graphe2& forme = bureau.Graphe();
  essai::VerifierControles(forme);
  Pilote pilote;
  const auto commande = [&] { return essai::CommandeMontree(pilote, forme); };
  const QString ligne = commande();
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "ENQ.svg").string()));
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnregSous");
  ASSERT_TRUE(ligne.startsWith("quelvar-batch ")) << ligne.toStdString();
  const QString shell = "cd '" + QString::fromStdString(copie.Chemin().string()) + "' && " QUELVAR_BATCH +
                        ligne.mid(QString("quelvar-batch").size()) + " >/dev/null 2>&1";
  ASSERT_EQ(std::system(shell.toUtf8().constData()), 0) << ligne.toStdString();
  EXPECT_EQ(quelvar::LireOctets(copie.Chemin() / "ENQ.svg"), bureau.Lire("ENQ.svg")) << ligne.toStdString();
  Cliquer(forme, "BtPlus");
  EXPECT_TRUE(commande().endsWith("# sans les retouches de l'image"));
  Cliquer(forme, "BoutonRAZ");
  EXPECT_EQ(commande(), ligne);
}

TEST(Graphe2, EnregistreSousSonNom) {
  BureauDeGraphe bureau;
  Graphe2& forme = bureau.Graphe();
  essai::Activer(forme);
  Pilote pilote;
  const auto accepterSurLaForme = [&](QDialog& boite) {
    EXPECT_EQ(boite.parentWidget(), &forme);  // the box leaves the picture in front
    boite.accept();
  };
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "figure.svg").string()));
  pilote.Faire(accepterSurLaForme);
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_EQ(forme.windowTitle(), "figure.svg");
  EXPECT_TRUE(bureau.Lire("figure.svg").starts_with("<?xml"));
  // A name without extension gets that of the filter, PNG at first; what bears it is not replaced unasked.
  const QString sans = QString::fromStdString((bureau.Dossier() / "figure").string());
  bureau.Ecrire("figure.png", "former");
  pilote.Choisir(sans);
  pilote.Cliquer("Non");
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_EQ(bureau.Lire("figure.png"), "former");
  pilote.Choisir(sans + ".gif");
  pilote.Cliquer("OK");
  Cliquer(forme, "BoutonEnregSous");
  EXPECT_TRUE(
      pilote.Vues().last().endsWith("figure.gif ne peut pas être écrit : une image est un fichier .png, .svg, "
                                    ".pdf ou .bmp"))
      << pilote.Vues().last().toStdString();
  pilote.Faire(accepterSurLaForme);
  Cliquer(forme, "BoutonEnreg");
  EXPECT_EQ(pilote.Vues().last(), "Graphique enregistré sous le nom : ENQTab.bmp");
  EXPECT_EQ(forme.windowTitle(), "ENQTab.bmp");
  const QImage image(QString::fromStdString((bureau.Dossier() / "ENQTab.bmp").string()));
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
  bool encre = false;
  for (int y = 0; y < image.height() && !encre; ++y)
    for (int x = 0; x < image.width() && !encre; ++x) encre = image.pixelColor(x, y).lightness() < 60;
  EXPECT_TRUE(encre);
  Cliquer(forme, "BoutonNouv");
  EXPECT_EQ(bureau.Forme<Graphe2>(), nullptr);
  EXPECT_NE(bureau.Forme<ChoixVar>(), nullptr);
}

}  // namespace
