// The forms of the session: first use, choice of the directory.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "forms/bureauenq.h"
#include "forms/programmes/capture/import/fimportcsv.h"
#include "forms/programmes/session/prem.h"
#include "forms/programmes/session/repertoires.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauEnq;
using essai::Cliquer;
using essai::Etiquette;
using essai::Pilote;

QListWidgetItem* Ligne(QListWidget& liste, const QString& nom) {
  for (int i = 0; i < liste.count(); ++i)
    if (liste.item(i)->text().trimmed() == nom) return liste.item(i);
  throw std::runtime_error("no such line: " + nom.toStdString());
}

void DoubleClic(QListWidget& liste, const QString& nom) {
  QListWidgetItem* ligne = Ligne(liste, nom);
  liste.scrollToItem(ligne);
  const QPoint place = liste.visualItemRect(ligne).center();
  QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(liste.viewport(), Qt::LeftButton, {}, place);
}

// From an empty machine to the first flat sort.
TEST(Prem, DesDonneesExistantesAuTriAPlat) {
  Bureau bureau;
  bureau.Ecrire("ENQ.CSV", essai::kTableur);
  qputenv("HOME", QByteArray::fromStdString(bureau.Dossier().parent_path().string()));
  bureau.Ouvrir();
  bureau.Menu("mnuPrem");
  EXPECT_EQ(bureau.Fenetre().windowTitle(), "Nouvelle utilisation");
  EXPECT_FALSE(bureau.MenuActif("mnuImport"));
  Prem* prem = bureau.Forme<Prem>();
  ASSERT_NE(prem, nullptr);
  EXPECT_FALSE(Bureau::Dans<QPushButton>(*prem, "BnomDir").isEnabled());
  Cliquer(*prem, "BdatOui");
  essai::Activer(*prem);
  QTest::keyClick(prem, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(Bureau::Dans<QListWidget>(*prem, "Dir1").hasFocus()) << "the letter of its label";
  DoubleClic(Bureau::Dans<QListWidget>(*prem, "Dir1"), "donnees");
  Cliquer(*prem, "BnomDir");
  EXPECT_GE(prem->height(), prem->layout()->totalHeightForWidth(prem->width())) << "nothing is squeezed";
  EXPECT_EQ(Etiquette(*prem, "LabelDir"), "Vos données seront désormais dans le répertoire " +
                                              QString::fromStdString(bureau.Dossier().string()) +
                                              "\nVous pouvez passer aux traitement de vos données déjà existantes\n"
                                              "ou plus tard, prendre le menu 'Nouvelles données' puis 'Import'");
  EXPECT_EQ(bureau.Fenetre().windowTitle(), "Nouvelle utilisation");
  Cliquer(*prem, "BnomGen");
  EXPECT_EQ(Etiquette(*prem, "LabelGen"), "Pas de nom : recommencer");
  auto& nom = Bureau::Dans<QLineEdit>(*prem, "TxtGen");
  nom.setText("a/b");
  Cliquer(*prem, "BnomGen");
  EXPECT_EQ(Etiquette(*prem, "LabelGen"),
            "Ce nom comporte un caractère qu'un fichier ne peut pas porter : recommencer");
  nom.clear();
  nom.setFocus();
  QTest::keyClicks(&nom, "ENQ");
  QTest::keyClick(&nom, Qt::Key_Return);
  EXPECT_EQ(bureau.Lire("qvr2.ini"), "ENQ\r\n 1 \r\n");
  EXPECT_TRUE(bureau.Texte().contains("Utilisez saisie ou import (dans menu Nouvelles données)"));
  EXPECT_TRUE(bureau.MenuActif("mnuImport"));
  Cliquer(*prem, "Bimport");
  FImportCSV* import = bureau.Forme<FImportCSV>();
  ASSERT_NE(import, nullptr);
  Cliquer(*import, "Lancer");
  EXPECT_EQ(bureau.Forme<FImportCSV>(), nullptr);
  EXPECT_TRUE(bureau.Texte().contains("Le nombre d'individus est de  3"));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.individus, 3);
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(bureau.Texte().contains("Question SEX Position    2"));
}

TEST(Prem, RepertoireACreerPourLaSaisie) {
  Bureau bureau;
  qputenv("HOME", QByteArray::fromStdString(bureau.Dossier().string()));
  bureau.Ouvrir();
  bureau.Menu("mnuPrem");
  Prem* prem = bureau.Forme<Prem>();
  Cliquer(*prem, "BdatNon");
  Pilote pilote;
  pilote.Taper("Nouvelle enquete");
  Cliquer(*prem, "BnouvDir");
  Cliquer(*prem, "BnomDir");
  EXPECT_TRUE(std::filesystem::is_directory(bureau.Dossier() / "Nouvelle enquete"));
  EXPECT_TRUE(Etiquette(*prem, "LabelDir").contains("constitution d'un descripteur des données"));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.repertoire, bureau.Dossier() / "Nouvelle enquete");
}

TEST(Prem, QuitteeElleRendTitreEtMenus) {
  BureauEnq bureau(1);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  const QString titre = bureau.Fenetre().windowTitle();
  const std::filesystem::path neuf = bureau.Dossier() / "Neuf";
  std::filesystem::create_directory(neuf);
  bureau.Menu("mnuPrem");
  EXPECT_FALSE(bureau.MenuActif("mnuImport"));
  QTest::keyClick(bureau.Forme<Prem>(), Qt::Key_Escape);
  EXPECT_EQ(bureau.Fenetre().windowTitle(), titre);
  EXPECT_TRUE(bureau.MenuActif("mnuImport"));
  // The generic in force goes along to a directory that has none.
  qputenv("HOME", QByteArray::fromStdString(neuf.string()));
  Prem& prem = bureau.Demander<Prem>("mnuPrem");
  Cliquer(prem, {"BdatOui", "BnomDir"});
  EXPECT_EQ(bureau.Lire("Neuf/qvr2.ini"), "ENQ\r\n 1 \r\n");
}

TEST(Repertoires, DoubleClicEtFichierInitialisation) {
  BureauEnq bureau(1);
  std::filesystem::create_directory(bureau.Dossier() / "Autre");
  essai::EcrireOctets(bureau.Dossier() / "Autre" / "Qvr2.ini", "AUTRE\r\n 2 \r\n");
  std::filesystem::create_directory(bureau.Dossier() / "Vide");
  bureau.Ouvrir();
  bureau.Menu("mnuChangeRepert");
  RepertoireEnCours* forme = bureau.Forme<RepertoireEnCours>();
  auto& dir = Bureau::Dans<QListWidget>(*forme, "Dir1");
  auto& fichiers = Bureau::Dans<QListWidget>(*forme, "FileDir");
  EXPECT_EQ(fichiers.count(), 1);
  DoubleClic(dir, "Autre");
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "AUTRE");
  EXPECT_EQ(fichiers.item(0)->text(), "Qvr2.ini");
  DoubleClic(dir, "donnees");
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "ENQ");
  essai::Activer(*forme);
  dir.setFocus();
  dir.setCurrentItem(Ligne(dir, "Vide"));
  QTest::keyClick(&dir, Qt::Key_Return);
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.repertoire, bureau.Dossier() / "Vide");
  EXPECT_EQ(fichiers.count(), 0);
  DoubleClic(dir, "donnees");
  DoubleClic(fichiers, "qvr2.ini");
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "ENQ");
}

// A name that leads to itself is neither there nor away: looking for it is refused by the system.
TEST(Prem, UneInitialisationInsaisissableLaisseLaFenetre) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  const std::filesystem::path boucle = bureau.Dossier() / "Boucle";
  std::filesystem::create_directory(boucle);
  std::filesystem::create_symlink("Qvr2.ini", boucle / "Qvr2.ini");
  qputenv("HOME", QByteArray::fromStdString(bureau.Dossier().string()));
  bureau.Ouvrir();
  auto& prem = bureau.Demander<Prem>("mnuPrem");
  Cliquer(prem, "BdatOui");
  DoubleClic(Bureau::Dans<QListWidget>(prem, "Dir1"), "Boucle");
  Cliquer(prem, "BnomDir");
  EXPECT_TRUE(prem.isVisible() && bureau.Fenetre().isVisible());
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.repertoire, boucle);
}

}  // namespace
