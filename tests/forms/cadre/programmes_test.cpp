// The forms of the first job: first use, import, flat sort, choice of the directory.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "forms/aide/frmabout.h"
#include "forms/pilote.h"
#include "forms/programmes/capture/fimport.h"
#include "forms/programmes/capture/fimportcsv.h"
#include "forms/programmes/capture/import/source.h"
#include "forms/programmes/session/prem.h"
#include "forms/programmes/session/repertoires.h"
#include "forms/programmes/sorts/choixrecodage.h"
#include "forms/programmes/sorts/choixtriapl.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Cliquer;
using essai::Etiquette;
using essai::Pilote;
using quelvar::forms::FImport;
using quelvar::forms::FImportCSV;
using quelvar::forms::Prem;

constexpr const char* kCsv = "NUM;SEX Sexe;AGE Age\r\n1;1;3\r\n2;2;1\r\n3;1;2\r\n";

struct BureauEnq : Bureau {
  using Bureau::Bureau;
  void AvecDonnees() {
    Ecrire("ENQ.POS", "ENQ\r\n 4 \r\nSEX   1 2 $Sexe$\r\nAGE   2 3 $Age$\r\n");
    Ecrire("ENQ.DAT", "13\r\n21\r\n12\r\n 9\r\n");
    Ecrire("ENQ.MOD", "ENQ\r\n\r\nSEX1   Homme\r\nSEX2   Femme\r\n");
  }
};

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
  bureau.Ecrire("ENQ.CSV", kCsv);
  qputenv("HOME", QByteArray::fromStdString(bureau.Dossier().parent_path().string()));
  bureau.Ouvrir();
  bureau.Menu("mnuPrem");
  EXPECT_EQ(bureau.Fenetre().windowTitle(), "Nouvelle utilisation");
  EXPECT_FALSE(bureau.MenuActif("mnuImport"));
  Prem* prem = bureau.Forme<Prem>();
  ASSERT_NE(prem, nullptr);
  EXPECT_FALSE(Bureau::Dans<QPushButton>(*prem, "BnomDir").isEnabled());
  Cliquer(*prem, "BdatOui");
  prem->activateWindow();
  QApplication::processEvents();
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

TEST(Recodage, LaBoiteDuGeneriqueAnnuleeArreteTout) {
  BureauEnq bureau(1);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  Pilote pilote;
  pilote.Abandonner();
  bureau.Menu("mnuOutils");
  EXPECT_EQ(bureau.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_FALSE(bureau.Existe("ENR.POS") || bureau.Existe("ENR.REC"));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "ENQ");
  // Of the three buttons on the modality file Escape is "Non": nothing goes along, and the question comes again.
  pilote.Taper("SUITE");
  pilote.Abandonner();
  bureau.Menu("mnuOutils");
  EXPECT_TRUE(bureau.Existe("SUITE.DAT"));
  EXPECT_FALSE(bureau.Existe("SUITE.MOD"));
  EXPECT_FALSE(bureau.Fenetre().ServicesDesFormes().session.passerModalites);
}

// A run that is given up in one of its boxes leaves its form, with what was chosen there, and the former report.
TEST(Annulation, LeFormulaireResteAvecSesChoix) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ecrire("ENQ.TAP", "tri d'avant\r\n");
  bureau.Ouvrir();
  Pilote pilote;
  bureau.Menu("mnuTriapl");
  ChoixTriapl* tri = bureau.Forme<ChoixTriapl>();
  Cliquer(*tri, {"CaseTriang", "CaseVerif"});
  pilote.Abandonner();  // the title of the triangular graph
  Cliquer(*tri, "BoutonTriapl");
  EXPECT_TRUE(tri->isVisible() && essai::Coche(*tri, "CaseTriang") && essai::Coche(*tri, "CaseVerif"));
  EXPECT_EQ(bureau.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_EQ(bureau.Lire("ENQ.TAP"), "tri d'avant\r\n");

  bureau.Ecrire("PRIS.POS", "PRIS\r\n 1 \r\nA     1 2\r\n");
  bureau.Menu("mnuOutils");
  auto* recodage = bureau.Forme<quelvar::forms::ChoixRecodage>();
  Cliquer(*recodage, "CaseRepMult");
  pilote.Abandonner();  // the new generic
  Cliquer(*recodage, "BoutonTriapl");
  pilote.Taper("PRIS");
  pilote.Cliquer("Non");  // its files are not to be replaced
  Cliquer(*recodage, "BoutonTriapl");
  EXPECT_TRUE(recodage->isVisible() && essai::Coche(*recodage, "CaseRepMult"));
  EXPECT_FALSE(bureau.Existe("PRIS.REC"));
}

TEST(Import, FormulaireSelonLesSources) {
  enum class Forme { Tableur, DBase, Aucune };
  struct Cas {
    const char* fichier;
    Forme forme;
  };
  for (const Cas& cas : {Cas{"ENQ.CSV", Forme::Tableur}, Cas{"enq.txt", Forme::Tableur}, Cas{"ENQ.DBF", Forme::DBase},
                         Cas{"ENQ.DAT", Forme::DBase}, Cas{"ENQ.ODS", Forme::Aucune}}) {
    SCOPED_TRACE(cas.fichier);
    BureauEnq bureau(1);
    bureau.Ecrire(cas.fichier, kCsv);
    bureau.Ecrire("ENQ.POS", "x");  // too short: counts as absent
    bureau.Ouvrir();
    bureau.Menu("mnuImport");
    EXPECT_EQ(bureau.Forme<FImportCSV>() != nullptr, cas.forme == Forme::Tableur);
    EXPECT_EQ(bureau.Forme<FImport>() != nullptr, cas.forme == Forme::DBase);
    EXPECT_EQ(bureau.Forme<SourceImport>() != nullptr, cas.forme == Forme::Aucune) << "its files are offered";
  }
}

TEST(Import, AideEtEtatDesFichiers) {
  BureauEnq bureau(1);
  bureau.Ecrire("ENQ.CSV", kCsv);
  bureau.Ecrire("ENQ.DAT", "1\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuImport");
  FImportCSV& forme = *bureau.Forme<FImportCSV>();
  const auto etat = [&](const char* nom) { return Etiquette(forme, nom); };
  EXPECT_EQ(etat("LabelCSV") + etat("LabelTXT") + etat("LabelDAT") + etat("LabelPOS"), "PrésentAbsentPrésentAbsent");
  auto& aide = Bureau::Dans<QPlainTextEdit>(forme, "TextAide");
  EXPECT_EQ(aide.toPlainText(),
            "Importation d'un fichier CSV (*.CSV) ou d'un fichier TXT (*.TXT) .\n"
            "Le nom du champ issu d'Excel  est repris uniquement dans le cas des champs de largeur 1, 2 ou 3. Les "
            "autres champs son conservés dans le fichier *.DAT mais non dans le fichier *.POS\n"
            "Attention les fichiers *.DAT et *.POS qui existent déjà seront remplacés du fait de l'importation du "
            "fichier CSV.\n");
  Cliquer(forme, "CheckTrg");
  EXPECT_TRUE(aide.toPlainText().endsWith("Dans ce cas, un fichier DAT est créé mais non un fichier POS.\n"));
  Cliquer(forme, "Lancer");
  EXPECT_FALSE(bureau.Existe("ENQ.POS"));
  EXPECT_TRUE(bureau.Lire("ENQ.DAT").starts_with("NUM")) << "the title line is data";
}

TEST(TriAPlat, NiveauUnSansOptions) {
  BureauEnq bureau(1);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  bureau.Menu("mnuTriapl");
  EXPECT_EQ(bureau.Forme<ChoixTriapl>(), nullptr);
  EXPECT_TRUE(bureau.Texte().contains("Homme"));
  EXPECT_TRUE(bureau.Texte().contains("Fin normale du programme"));
  EXPECT_FALSE(bureau.Texte().contains("exclues"));
}

TEST(TriAPlat, ChaqueOptionDuNiveauDeux) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ecrire("AUTRE.DAT", "11\r\n11\r\n11\r\n11\r\n");
  bureau.Ouvrir();
  Pilote pilote;
  const auto lancer = [&](std::initializer_list<const char*> cases, const char* bouton = nullptr) {
    bureau.Menu("mnuTriapl");
    ChoixTriapl* forme = bureau.Forme<ChoixTriapl>();
    if (forme == nullptr) throw std::runtime_error("no options");
    EXPECT_EQ(forme->windowTitle(), "Options du tri à plat");
    EXPECT_TRUE(essai::Coche(*forme, "CaseMod"));
    EXPECT_TRUE(essai::Coche(*forme, "BoutNROui"));
    for (const char* nom : {"CaseTriang", "CaseRepMult", "CaseVerif", "CaseDat"})
      EXPECT_FALSE(essai::Coche(*forme, nom)) << nom;
    for (const char* nom : cases) Cliquer(*forme, nom);
    if (bouton != nullptr) Cliquer(*forme, bouton);
    Cliquer(*forme, "BoutonTriapl");
    return bureau.Texte();
  };
  EXPECT_TRUE(lancer({}).contains("Homme"));
  EXPECT_FALSE(lancer({"CaseMod"}).contains("Homme"));
  EXPECT_TRUE(lancer({}, "BoutNRNon").contains("non-réponses (de code zéro) exclues"));
  EXPECT_TRUE(lancer({"CaseRepMult"}).contains("Impression du cumul"));
  EXPECT_TRUE(lancer({"CaseVerif"}).contains("Depassement de code-max a AGE"));
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "AUTRE.DAT").string()));
  EXPECT_TRUE(lancer({"CaseDat"}).contains("Le nom du fichier d'entree est AUTRE.DAT"));
  pilote.Taper("Mon graphique");
  for (const char* sommet : {"un", "deux", "trois"}) pilote.Taper(sommet);
  EXPECT_TRUE(lancer({"CaseTriang"}).contains("non-réponses (de code zéro) exclues")) << "triangular forces it";
  EXPECT_TRUE(bureau.Lire("ENQ.TRG").starts_with("Mon graphique\r\nun\r\ndeux\r\ntrois\r\n"));
}

TEST(TriAPlat, AbandonDuFichierEtAnnulation) {
  BureauEnq bureau(2);
  bureau.AvecDonnees();
  bureau.Ouvrir();
  bureau.Menu("mnuTriapl");
  ChoixTriapl* forme = bureau.Forme<ChoixTriapl>();
  Cliquer(*forme, "CaseDat");
  Pilote pilote;
  pilote.Abandonner();
  Cliquer(*forme, "BoutonTriapl");
  EXPECT_FALSE(bureau.Existe("ENQ.TAP"));
  EXPECT_TRUE(forme->isVisible());
  Cliquer(*forme, "BoutonTriaplNull");
  EXPECT_EQ(bureau.Forme<ChoixTriapl>(), nullptr);
}

TEST(TriAPlat, RapportLongDansLeLecteur) {
  BureauEnq bureau(1);
  std::string pos = "ENQ\r\n 1 \r\n";
  for (int i = 1; i <= 400; ++i) {
    char ligne[64];
    std::snprintf(ligne, sizeof ligne, "%03d%4d 9 $Question numero %d$\r\n", i, i, i);
    pos += ligne;
  }
  bureau.Ecrire("ENQ.POS", pos);
  bureau.Ecrire("ENQ.DAT", std::string(400, '1') + "\r\n");
  bureau.Ouvrir();
  bureau.Menu("mnuAPropos");
  bureau.Menu("mnuTriapl");
  EXPECT_EQ(bureau.Texte(),
            "texte trop long, WordPad est lancé\npour examiner les résultats de : ENQ.TAP\nProgramme terminé");
  EXPECT_EQ(bureau.demarres,
            QStringList("quelvar-lecteur " + QString::fromStdString((bureau.Dossier() / "ENQ.TAP").string())));
  EXPECT_EQ(bureau.Forme<quelvar::forms::FrmAbout>(), nullptr);
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
  forme->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(forme));
  dir.setFocus();
  dir.setCurrentItem(Ligne(dir, "Vide"));
  QTest::keyClick(&dir, Qt::Key_Return);
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.repertoire, bureau.Dossier() / "Vide");
  EXPECT_EQ(fichiers.count(), 0);
  DoubleClic(dir, "donnees");
  DoubleClic(fichiers, "qvr2.ini");
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.generique, "ENQ");
}

}  // namespace
