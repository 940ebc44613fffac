// The main form: start-up, moves between data sets, sizes, boxes of a run.
#include "forms/cadre/principal.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QInputDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include "forms/pilote.h"
#include "forms/programmes/session/frmabout.h"
#include "forms/qt/dialogue.h"
#include "forms/texte/textefixe.h"

namespace {

using essai::Bureau;
using essai::Cliquer;
using essai::Pilote;
using quelvar::operator""_w;

constexpr const char* kPos = "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$\r\n";
constexpr const char* kDat = "1\r\n2\r\n1\r\n";

// A directory with the data set ENQ, opened at start-up.
struct BureauOuvert : Bureau {
  explicit BureauOuvert(int niveau = 1) : Bureau(niveau) {
    Ecrire("ENQ.POS", kPos);
    Ecrire("ENQ.DAT", kDat);
    Ouvrir();
  }
};

TEST(Principal, PremierDemarrage) {
  Bureau bureau;
  bureau.Ouvrir();
  EXPECT_TRUE(bureau.Texte().startsWith("Pas de fichier ouvert\n\nPour une première utilisation"));
  EXPECT_TRUE(
      bureau.Fenetre().windowTitle().startsWith("Pas de générique en cours, niveau d'utilisateur non déterminé"));
  EXPECT_EQ(bureau.Controle<QLabel>("OldGen").text(), "Non encore utilisé");
  EXPECT_EQ(bureau.Controle<QComboBox>("TailleCar").currentText(), "10");
  bureau.Menu("mnuTriapl");  // no data set: the report says so
  EXPECT_TRUE(bureau.Texte().contains("n'existe pas"));
}

TEST(Principal, UnGeneriqueDUneAutreEcritureSeMontreTelQuel) {
  Bureau bureau(1, quelvar::NomDepuisUtf8("Да"));
  bureau.Ecrire("Да.POS", kPos);
  bureau.Ecrire("Да.DAT", kDat);
  bureau.Ecrire("Нет.POS", kPos);
  bureau.Ouvrir();
  EXPECT_TRUE(bureau.Texte().contains("Le générique en cours dans ce répertoire est : Да\n"))
      << bureau.Texte().toStdString();
  EXPECT_TRUE(bureau.Texte().contains("\nДа\nНет")) << bureau.Texte().toStdString();
  EXPECT_NE(bureau.Controle<quelvar::forms::TexteFixe>("Text1").Octets().find("\n??\r\n???"), std::string::npos);
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(bureau.Texte().contains("Les impressions se font sur ??.TAP")) << "a report has the code page only";
  EXPECT_TRUE(std::filesystem::exists(bureau.Dossier() / "Да.TAP"));
}

TEST(Principal, ReprendLaDerniereSession) {
  BureauOuvert bureau(2);
  const QString dossier = QString::fromStdString(bureau.Dossier().string());
  EXPECT_EQ(bureau.Fenetre().windowTitle(),
            " Générique en cours= ENQ, niveau d'utilisateur=2, répertoire en cours =" + dossier + "/");
  EXPECT_TRUE(
      bureau.Texte().endsWith("Le générique en cours dans ce répertoire est : ENQ\n"
                              "  il a été ouvert normalement et comporte 3 individus\n"
                              "Liste des génériques disponibles dans ce répertoire :\nENQ\n"));
  EXPECT_TRUE(bureau.Fenetre().findChild<QAction*>("mnuNiv2")->isChecked());
  bureau.Menu("mnuQuitter");
  EXPECT_FALSE(bureau.Fenetre().isVisible());
  EXPECT_EQ(quelvar::LirePointeur(bureau.DossierProgramme()), bureau.Dossier() / "qvr2.ini");
}

TEST(Principal, ChaineDesGeneriquesALaSouris) {
  BureauOuvert bureau;
  auto& combo = bureau.Controle<QComboBox>("ComboGen");
  const auto taper = [&](const char* nom) {
    combo.setFocus();
    combo.lineEdit()->selectAll();
    QTest::keyClicks(combo.lineEdit(), nom);
    Cliquer(bureau.Fenetre(), "CmdGenOui");
  };
  taper("ESSAI.POS");
  EXPECT_EQ(bureau.Controle<QLabel>("EnCours").text(), "ESSAI");
  EXPECT_EQ(bureau.Controle<QLabel>("OldGen").text(), "ENQ");
  EXPECT_EQ(bureau.Lire("qvr2.ini"), "ESSAI\r\n 1 \r\n");
  EXPECT_TRUE(bureau.Texte().contains("(ESSAI) n'a pas de fichier *.pos"));
  EXPECT_EQ(combo.itemText(0), "ESSAI") << "the present one first";
  EXPECT_EQ(combo.itemText(1), "ENQ");
  Cliquer(bureau.Fenetre(), "CmdGenAncien");
  EXPECT_EQ(combo.currentText(), "ENQ");
  EXPECT_EQ(bureau.Controle<QLabel>("EnCours").text(), "ENQ");
  combo.setCurrentIndex(combo.findText("------------------"));
  Cliquer(bureau.Fenetre(), "CmdGenOui");
  EXPECT_EQ(bureau.Texte(), "Pas de nom : recommencer\n");
  EXPECT_EQ(combo.currentText(), "");
  EXPECT_EQ(bureau.Lire("qvr2.ini"), "ENQ\r\n 1 \r\n");
  combo.setFocus();
  QTest::keyClicks(&combo, "AUTRE");
  QTest::keyClick(&combo, Qt::Key_Return);
  EXPECT_EQ(bureau.Controle<QLabel>("EnCours").text(), "AUTRE");
  Cliquer(bureau.Fenetre(), "CmdGenAncien");
  EXPECT_EQ(bureau.Controle<QLabel>("EnCours").text(), "ENQ");
  combo.setFocus();
  combo.lineEdit()->selectAll();
  QTest::keyClicks(combo.lineEdit(), "EN");
  EXPECT_EQ(combo.currentText(), "EN") << "nothing completes what is typed";
  combo.setEditText("ENQ");
  Cliquer(bureau.Fenetre(), "CmdGenNon");
  EXPECT_EQ(bureau.Texte(), "");
  Cliquer(bureau.Fenetre(), "BoutNouv");
  EXPECT_TRUE(bureau.Texte().startsWith("Le générique en cours dans ce répertoire est : ENQ"));
  bureau.Fenetre().ServicesDesFormes().adopterGenerique("ENR");
  EXPECT_EQ(combo.itemText(0), "ENR") << "a program that steps to a new generic";
  EXPECT_EQ(combo.currentText(), "ENR");
}

TEST(Principal, NiveauDepuisLeMenu) {
  BureauOuvert bureau;
  bureau.Menu("mnuNiv2");
  EXPECT_EQ(bureau.Lire("qvr2.ini"), "ENQ\r\n 2 \r\n");
  EXPECT_TRUE(bureau.Fenetre().windowTitle().contains("niveau d'utilisateur=2"));
  bureau.Menu("mnuAPropos");
  ASSERT_NE(bureau.Forme<quelvar::forms::FrmAbout>(), nullptr);
  bureau.Menu("mnuNiv1");
  EXPECT_EQ(bureau.Forme<quelvar::forms::FrmAbout>(), nullptr) << "a change of level closes the forms";
}

TEST(Principal, FichiersRecentsDansLeMenu) {
  BureauOuvert bureau;
  const std::filesystem::path autre = bureau.Dossier() / "Autre";
  std::filesystem::create_directory(autre);
  essai::EcrireOctets(autre / "Qvr2.ini", "AUTRE\r\n 2 \r\n");
  Pilote pilote;
  pilote.Choisir(QString::fromStdString((autre / "Qvr2.ini").string()));
  bureau.Menu("mnuChercher");
  EXPECT_EQ(pilote.Vues().value(0), "Options de recherche de fichier Qvr2.ini");
  EXPECT_EQ(bureau.Controle<QLabel>("EnCours").text(), "AUTRE");
  Cliquer(bureau.Fenetre(), "CmdGenOui");  // accepted without a .pos: recent all the same
  auto* premier = bureau.Fenetre().findChild<QAction*>("mnuRecentFile1");
  ASSERT_NE(premier, nullptr);
  EXPECT_TRUE(premier->text().endsWith("/Autre/Qvr2.ini (AUTRE)")) << premier->text().toStdString();
  EXPECT_EQ(bureau.Fenetre().findChild<QAction*>("mnuRecentFile0")->isSeparator(), true);
  bureau.Menu("mnuRecentFile2");
  EXPECT_EQ(bureau.Controle<QLabel>("EnCours").text(), "ENQ");
  std::filesystem::remove_all(autre);
  bureau.Menu("mnuPreced");
  EXPECT_TRUE(bureau.Fenetre().findChild<QAction*>("mnuRecentFile1")->text().endsWith("(indéterminé)"));
  EXPECT_FALSE(bureau.MenuActif("mnuRecentFile1"));
}

TEST(Principal, RepertoireSansInitialisationAttendUnGenerique) {
  BureauOuvert bureau;
  essai::Activer(bureau.Fenetre());
  const std::filesystem::path vide = bureau.Dossier() / "vide";
  std::filesystem::create_directory(vide);
  bureau.Fenetre().ServicesDesFormes().ouvrirInitialisation(quelvar::CheminInitialisation(vide));
  EXPECT_TRUE(bureau.Texte().contains("Il n'y a pas de fichier d'initialisation (Qvr2.ini) dans ce répertoire"));
  EXPECT_TRUE(bureau.Controle<QComboBox>("ComboGen").hasFocus());
  EXPECT_EQ(bureau.Fenetre().windowTitle(), " Pas de générique en cours, niveau d'utilisateur=1");
}

TEST(Principal, TaillesDeLEcran) {
  BureauOuvert bureau;
  auto& texte = bureau.Controle<quelvar::forms::TexteFixe>("Text1");
  texte.FixerTaille(6);  // a page that fits the screen of the test
  // What is left of the text box once a report has brought both bars.
  const auto choisir = [&](const char* taille) {
    const auto montrer = [&](std::size_t lignes, std::size_t colonnes) {
      bureau.Fenetre().ServicesDesFormes().afficherTexte(std::string(colonnes, 'x') + std::string(lignes, '\n'));
      QTest::qWait(20);
      return texte.viewport()->size();
    };
    montrer(1, 1);
    bureau.Menu(taille);
    const QSize sansBarres = montrer(1, 1);
    const QSize avecBarres = montrer(500, 400);
    EXPECT_LT(avecBarres.width(), sansBarres.width()) << taille;
    return avecBarres;
  };
  const QSize page = choisir("mnuEcr35");
  const QFontMetrics police(texte.font());
  EXPECT_EQ(page, QSize(80 * police.horizontalAdvance(u'0') + 12, 45 * police.lineSpacing()));
  choisir("mnuEcrAuto");
  EXPECT_TRUE(bureau.Fenetre().isMaximized());
  const QSize grande = choisir("mnuEcr38");
  EXPECT_FALSE(bureau.Fenetre().isMaximized());
  const QSize ecran = bureau.Fenetre().screen()->availableSize();
  const int autour = bureau.Fenetre().width() - grande.width();
  EXPECT_EQ(bureau.Fenetre().width(), std::min(ecran.width(), (page * 4 / 3).width() + autour));
}

TEST(Principal, TailleDesCaracteres) {
  BureauOuvert bureau;
  auto& taille = bureau.Controle<QComboBox>("TailleCar");
  taille.setFocus();
  QTest::keyClick(&taille, Qt::Key_Down);
  EXPECT_EQ(taille.currentText(), "11");
  EXPECT_EQ(bureau.Controle<quelvar::forms::TexteFixe>("Text1").font().pointSize(), 11);
}

// Two controls of a window that answer to the same Alt key leave one of them out of reach.
TEST(Principal, LettresDAccesDistinctes) {
  BureauOuvert bureau;
  QMap<QChar, QStringList> lettres;
  for (const QAction* menu : bureau.Fenetre().menuBar()->actions())
    lettres[QKeySequence::mnemonic(menu->text()).toString().back().toUpper()] << menu->text();
  for (const auto* bouton : bureau.Fenetre().centralWidget()->findChildren<QAbstractButton*>())
    if (const QKeySequence lettre = QKeySequence::mnemonic(bouton->text()); !lettre.isEmpty())
      lettres[lettre.toString().back().toUpper()] << bouton->text();
  for (auto i = lettres.cbegin(); i != lettres.cend(); ++i)
    EXPECT_EQ(i.value().size(), 1) << i.value().join(u", ").toStdString();
  EXPECT_EQ(lettres[u'F'], QStringList("&Fichier de démarrage"));
}

// --- a run and its boxes ---

TEST(Principal, BoitesDUnProgramme) {
  BureauOuvert bureau;
  const quelvar::Dialogue& ecran = bureau.Fenetre().ServicesDesFormes().ecran;
  using quelvar::Boutons;
  using quelvar::Reponse;
  Pilote pilote;
  pilote.Cliquer("Oui");
  EXPECT_EQ(ecran.demander("un\r\ndeux", Boutons::OuiNon), Reponse::Oui);
  EXPECT_EQ(pilote.Vues().value(0), "un\ndeux");
  pilote.Cliquer("Non");
  EXPECT_EQ(ecran.demander("<b>x</b>", Boutons::OuiNon), Reponse::Non);
  pilote.Abandonner();
  EXPECT_EQ(ecran.demander("x", Boutons::OuiNon), Reponse::Non);
  pilote.Faire([](QDialog& boite) { QTest::keyClick(&boite, Qt::Key_Return); });
  EXPECT_EQ(ecran.demander("x", Boutons::NonOui), Reponse::Non) << "the default of a question that is no by default";
  pilote.Cliquer("Annuler");
  EXPECT_EQ(ecran.demander("x", Boutons::OuiNonAnnuler), Reponse::Annuler);
  pilote.Cliquer("OK");
  EXPECT_EQ(ecran.demander("x", Boutons::Ok), Reponse::Ok);
  pilote.Taper("reponse");
  EXPECT_EQ(ecran.saisir("Nom", "propose"), "reponse");
  pilote.Faire([](QDialog& boite) { QTest::keyClick(&boite, Qt::Key_Return); });
  EXPECT_EQ(ecran.saisir("Nom", "propose"), "propose");
  pilote.Abandonner();
  EXPECT_EQ(ecran.saisir("Nom", "propose"), "");
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "ENQ.DAT").string()));
  EXPECT_EQ(ecran.choisirFichier("Choix", "Fichiers *.dat|*.dat"), (bureau.Dossier() / "ENQ.DAT").string());
  pilote.Abandonner();
  EXPECT_EQ(ecran.choisirFichier("Choix", "Fichiers *.dat|*.dat"), "");
}

TEST(Principal, UneBoiteAnnuleeArreteLeRunSansTrace) {
  BureauOuvert bureau;
  bureau.Ecrire("ENQ.TAP", "ancien\r\n");
  quelvar::forms::Services& services = bureau.Fenetre().ServicesDesFormes();
  bool suite = false;
  Pilote pilote;
  pilote.Abandonner();
  services.Lancer([&](const quelvar::Contexte& contexte) {
    quelvar::ExecuterProgramme(contexte, "ENQ.TAP", {}, [&](quelvar::Rapport& rapport) {
      rapport.Ligne("nouveau");
      contexte.Ecran().saisir("Nom", "");
      suite = true;
    });
  });
  EXPECT_FALSE(suite);
  EXPECT_EQ(bureau.Texte(), "Arrêt volontaire du programme\n");
  // Escape is no "Non" that lets the run go on.
  for (const bool croix : {false, true}) {
    if (croix) pilote.Faire([](QDialog& boite) { boite.close(); });
    else pilote.Abandonner();
    services.Lancer([&](const quelvar::Contexte& contexte) {
      quelvar::ExecuterProgramme(contexte, "ENQ.TAP", {}, [&](quelvar::Rapport& /*rapport*/) {
        contexte.Ecran().demander("Le choix ?", quelvar::Boutons::OuiNon);
        suite = true;
      });
    });
    EXPECT_FALSE(suite);
  }
  EXPECT_EQ(bureau.Lire("ENQ.TAP"), "ancien\r\n");
  pilote.Faire([](QDialog& boite) { QTest::keyClick(&boite, Qt::Key_Return); });
  services.Lancer([&](const quelvar::Contexte& contexte) { suite = contexte.Ecran().saisir("Nom", "").empty(); });
  EXPECT_TRUE(suite) << "an empty answer is an answer";
}

TEST(Principal, UnProgrammeTientLaFenetre) {
  BureauOuvert bureau;
  Pilote pilote;
  auto& quitter = bureau.Controle<QPushButton>("BoutQuit");
  auto& texte = bureau.Controle<quelvar::forms::TexteFixe>("Text1");
  texte.setFocus();
  const QString avant = bureau.Texte();
  bureau.Fenetre().ServicesDesFormes().Lancer([&](const quelvar::Contexte& contexte) {
    const auto& progression = bureau.Controle<QProgressBar>("ProgressBar1");
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    contexte.Ecran().montrerProgression(4'000'000'000);
    EXPECT_TRUE(progression.isVisible());
    contexte.Ecran().progresser(1'000'000'000);
    EXPECT_EQ(progression.value() * 4, progression.maximum());
    contexte.Ecran().montrerIteration("itération 3"_w);
    EXPECT_EQ(bureau.Controle<QLabel>("LabelIter").text(), "itération 3");
    QTest::mouseClick(&quitter, Qt::LeftButton);
    QTest::keyClicks(&texte, "abc");
    for (const QEvent::Type genre : {QEvent::KeyPress, QEvent::KeyRelease})
      QCoreApplication::postEvent(&texte, new QKeyEvent(genre, Qt::Key_D, Qt::NoModifier, "d"));
    bureau.Menu("mnuNiv2");
    pilote.Cliquer("Oui");
    EXPECT_EQ(contexte.Ecran().demander("Suite ?", quelvar::Boutons::OuiNon), quelvar::Reponse::Oui);
    bureau.Fenetre().ServicesDesFormes().Lancer([](const quelvar::Contexte&) { FAIL() << "one run at a time"; });
    bureau.Fenetre().close();
  });
  QCoreApplication::processEvents();
  EXPECT_TRUE(bureau.Fenetre().isVisible());
  EXPECT_EQ(bureau.Texte(), avant);
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.niveau, 1);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  QTest::keyClicks(&texte, "e");
  EXPECT_EQ(bureau.Texte(), avant + "e") << "the window is the user's again";
}

// A form whose handler closes it and goes on: run and box spin the event loop, and the form must still be there.
class FormeQuiSeFerme : public Forme {
  Q_OBJECT
 public:
  explicit FormeQuiSeFerme(Services& services) : Forme(services) {}
  void Fermer() {
    close();
    services_.Lancer([](const quelvar::Contexte& contexte) {
      contexte.Ecran().montrerProgression(1);
      contexte.Ecran().demander("?", quelvar::Boutons::Ok);
    });
    fini = true;
  }
  bool fini = false;
};

TEST(Principal, FormeFermeeParSonPropreBouton) {
  BureauOuvert bureau;
  Pilote pilote;
  Services& services = bureau.Fenetre().ServicesDesFormes();
  QPointer<FormeQuiSeFerme> forme = &Montrer<FormeQuiSeFerme>(services);
  EXPECT_EQ(&Montrer<FormeQuiSeFerme>(services), forme.data()) << "one form of a class at a time";
  pilote.Cliquer("OK");
  QTimer::singleShot(0, forme.data(), [forme] {
    forme->Fermer();
    ASSERT_FALSE(forme.isNull());
    EXPECT_TRUE(forme->fini);
  });
  QTest::qWait(20);
  EXPECT_TRUE(QTest::qWaitFor([&] { return forme.isNull(); }, 2000));
}

TEST(Principal, EchecQuUnProgrammeLaisseSortir) {
  BureauOuvert bureau;
  bureau.Fenetre().ServicesDesFormes().Lancer(
      [](const quelvar::Contexte&) { throw quelvar::Erreur(quelvar::kDisquePlein); });
  EXPECT_TRUE(bureau.Texte().contains("notez le numero =  61 Disque plein"));
  essai::Pilote pilote;  // where it was met, when that is known
  pilote.Cliquer("OK");
  bureau.Fenetre().ServicesDesFormes().Lancer([](const quelvar::Contexte&) {
    throw quelvar::Erreur(quelvar::kFinDeFichierDepassee).Situer({"ENQ.DAT", 12, 5});
  });
  EXPECT_EQ(pilote.Vues(), QStringList("L'entrée dépasse la fin de fichier (ENQ.DAT, ligne 12, colonne 5)"));
  EXPECT_TRUE(bureau.Texte().contains("tentative de lire un fichier deja termine"));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(Principal, FiltresDeFichiers) {
  EXPECT_EQ(quelvar::forms::FiltreQt("Fichiers *.dat|*.dat|Tous fichiers *.*|*.*"),
            "Fichiers *.dat (*.dat *.DAT);;Tous fichiers *.* (*)");
  EXPECT_EQ(quelvar::forms::FiltreQt("Fichiers Qvr2.ini|Qvr2.ini"), "Fichiers Qvr2.ini (Qvr2.ini qvr2.ini QVR2.INI)");
  EXPECT_EQ(quelvar::forms::FiltreQt("Textes (a)|*.txt;*.csv"), "Textes a (*.txt *.TXT *.csv *.CSV)");
}

}  // namespace

#include "principal_test.moc"

using namespace quelvar::forms;
