// What holds for every window behind the menu, whichever is added: letters, names, tab order, size, and a long report
// at the end of its run.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <map>
#include <utility>

#include "factor/analyse/anecar.h"
#include "forms/cadre/entrees.h"
#include "forms/editeur/frmfind.h"
#include "forms/editeur/frmsdi.h"
#include "forms/pieces/ecran.h"
#include "forms/pilote.h"
#include "forms/programmes/capture/import/apercuimport.h"
#include "forms/programmes/capture/import/sourceimport.h"
#include "modalities/creation/posmod.h"
#include "tables/ecapem.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::VerifierControles;

// Answers every box by Escape, looked at before.
class Silence : public QObject {
 public:
  explicit Silence(std::function<void(QDialog&)> regarder = {}) : regarder_(std::move(regarder)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    auto* boite = qobject_cast<QDialog*>(objet);
    if (boite != nullptr && evenement->type() == QEvent::Show && boite->isModal())
      QTimer::singleShot(0, boite, [this, boite] {
        if (regarder_) regarder_(*boite);
        boite->reject();
      });
    return QObject::eventFilter(objet, evenement);
  }

 private:
  std::function<void(QDialog&)> regarder_;
};

// A survey on which every program has been run, so that every form finds what it reads.
struct BureauComplet : Bureau {
  explicit BureauComplet(int niveau = 2) : Bureau(niveau) {
    Ecrire("ENQ.POS", "ENQ\r\n 24 \r\nSEX   1 2 $Sexe$\r\nAGE   2 3 $Age$\r\nLEC   3 3 $Lecture$\r\n");
    std::string dat;
    for (int i = 0; i < 24; ++i)
      dat += {static_cast<char>('1' + i % 2), static_cast<char>('1' + i % 3), static_cast<char>('1' + i * i / 5 % 3),
              '\r', '\n'};
    Ecrire("ENQ.DAT", dat);
    Ecrire("ENQ.DES", "");
    Ecrire("ENQ.TXT", "1 un mot\r\n2 deux mots\r\n");
    Ouvrir();
    Services& services = Fenetre().ServicesDesFormes();
    const Silence silence;
    services.Lancer([](const quelvar::Contexte& contexte) {
      quelvar::modalities::OptionsPosmod choix;
      choix.actives = {"SEX", "AGE", "LEC"};
      choix.individus = true;
      quelvar::modalities::Posmod(contexte, choix);
      quelvar::tables::Ecapem(contexte, {});
      quelvar::factor::OptionsAnecar analyse;
      analyse.classification = quelvar::factor::OptionsWard{};
      quelvar::factor::Anecar(contexte, analyse);
    });
  }
  // The forms that are shown.
  QList<quelvar::forms::Forme*> Ouvertes() {
    QList<quelvar::forms::Forme*> ouvertes;
    for (auto* forme : Fenetre().findChildren<quelvar::forms::Forme*>())
      if (forme->isVisible()) ouvertes << forme;
    return ouvertes;
  }
};

// Takes an entry as the menu would, whatever the machine has disabled.
void Prendre(Bureau& bureau, const EntreeDeProgramme& entree) {
  entree.ouvrir(bureau.Fenetre().ServicesDesFormes());
  QCoreApplication::processEvents();
}

// Whole on a screen of 1024 x 768, with the bar of the window; on smaller ones it scrolls and stays inside, and the
// keyboard stays where it was.
void VerifierTaille(QWidget& fenetre) {
  const QWidget* const clavier = fenetre.focusWidget();
  const QSize besoin = ContenuDe(fenetre).minimumSizeHint();
  EXPECT_LE(besoin.width(), 1024);
  EXPECT_LE(besoin.height(), 768 - 40);
  for (const QRect& ecran : {fenetre.screen()->availableGeometry(), QRect(0, 0, 1280, 720), QRect(0, 0, 640, 360)}) {
    TenirDans(fenetre, ecran);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const QRect cadre = fenetre.frameGeometry();
    EXPECT_TRUE(fenetre.width() <= ecran.width() && cadre.height() <= ecran.height() && ecran.contains(cadre.topLeft()))
        << ecran.width() << " x " << ecran.height() << ": " << fenetre.width() << " x " << fenetre.height();
  }
  EXPECT_EQ(fenetre.focusWidget(), clavier);
}

// The boxes that a form opens by a button of its own: those of Qt for files aside, they are looked at as they come.
std::size_t VerifierBoites(QWidget& forme) {
  std::size_t vues = 0;
  const Silence regard([&](QDialog& boite) {
    if (qobject_cast<QFileDialog*>(&boite) != nullptr) return;
    SCOPED_TRACE(boite.windowTitle().toStdString() + " of " + forme.metaObject()->className());
    VerifierControles(boite);
    ++vues;
  });
  for (auto* bouton : forme.findChildren<QPushButton*>(QRegularExpression(QStringLiteral("^BoutCommande"))))
    if (bouton->isVisible() && bouton->isEnabled()) bouton->click();
  return vues;
}

TEST(ToutesLesFormes, LettresNomsTabulationTaille) {
  std::size_t boites = 0;
  for (const int niveau : {1, 2}) {
    for (const EntreeDeProgramme& entree : EntreesDeProgrammes()) {
      SCOPED_TRACE(std::string(entree.action) + " niveau " + std::to_string(niveau));
      BureauComplet bureau(niveau);
      const Silence silence;
      Prendre(bureau, entree);
      for (Forme* forme : bureau.Ouvertes()) {
        auto* onglets = forme->findChild<QTabWidget*>();
        for (int rang = 0; rang < (onglets == nullptr ? 1 : onglets->count()); ++rang) {
          if (onglets != nullptr) onglets->setCurrentIndex(rang);
          VerifierControles(*forme);
          boites += VerifierBoites(*forme);
        }
        VerifierTaille(*forme);
      }
    }
  }
  EXPECT_GE(boites, 20U) << "of the equivalent commands";
}

// Those that stand beside the forms of the programs.
TEST(ToutesLesFormes, LaFenetrePrincipaleLEditeurEtLaRecherche) {
  BureauComplet bureau;
  const Silence silence;
  VerifierControles(bureau.Fenetre());
  bureau.Menu("mnuAPropos");
  for (Forme* forme : bureau.Ouvertes()) VerifierControles(*forme);
  bureau.Menu("mnuEdPOS");
  std::size_t recherches = 0;
  for (QWidget* fenetre : QApplication::topLevelWidgets()) {
    auto* editeur = qobject_cast<frmSDI*>(fenetre);
    if (editeur == nullptr) continue;
    VerifierControles(*editeur);
    Bureau::Dans<QAction>(*editeur, "mnuChercher").trigger();
    for (auto* recherche : editeur->findChildren<frmFind*>()) {
      VerifierControles(*recherche);
      ++recherches;
    }
  }
  EXPECT_GE(recherches, 1U);
}

TEST(ToutesLesFormes, LaFenetrePrincipaleEtLEditeurTiennentSurUnPetitEcran) {
  BureauComplet bureau;
  VerifierTaille(bureau.Fenetre());
  bureau.Menu("mnuEdPOS");
  for (QWidget* fenetre : QApplication::topLevelWidgets())
    if (auto* editeur = qobject_cast<frmSDI*>(fenetre)) VerifierTaille(*editeur);
}

// The files of the directory, but for the records of the runs.
std::map<std::string, std::string> Fichiers(const Bureau& bureau) {
  std::map<std::string, std::string> fichiers;
  for (const auto& entree : std::filesystem::directory_iterator(bureau.Dossier()))
    if (entree.path().extension() != ".jeu")
      fichiers[entree.path().filename()] = bureau.Lire(entree.path().filename().c_str());
  return fichiers;
}

// The windows that no entry opens at once.
TEST(ToutesLesFormes, CellesDeLImportation) {
  BureauComplet bureau;
  const Silence silence;
  bureau.Ecrire("t.csv", "Sexe;Age;Note\r\nFemme;23;1\r\nHomme;41;x\r\nFemme;35;2\r\nHomme;52;3\r\n");
  Services& services = bureau.Fenetre().ServicesDesFormes();
  OuvrirSourceImport(services);
  ImporterFichier(services, bureau.Dossier() / "t.csv");
  ASSERT_EQ(bureau.Ouvertes().size(), 2);
  for (Forme* forme : bureau.Ouvertes()) {
    auto* colonnes = forme->findChild<QTableView*>(QStringLiteral("Colonnes"));
    for (int ligne = 0; ligne < (colonnes == nullptr ? 1 : colonnes->model()->rowCount()); ++ligne) {
      SCOPED_TRACE(std::string(forme->metaObject()->className()) + " " + std::to_string(ligne));
      if (colonnes != nullptr) colonnes->setCurrentIndex(colonnes->model()->index(ligne, 0));
      VerifierControles(*forme);
    }
    VerifierTaille(*forme);
  }
}

// Opening a form and leaving it changes no byte in the directory.
TEST(ToutesLesFormes, QuitterNeChangeAucunOctet) {
  std::size_t quittees = 0;
  for (const EntreeDeProgramme& entree : EntreesDeProgrammes()) {
    SCOPED_TRACE(entree.action);
    BureauComplet bureau;
    for (const char* rapport : {"ENQ.TCR", "ENQ.PRT", "ENQ.TRP", "ENQ.PR2", "ENQ.IMP"})
      bureau.Ecrire(rapport, "un ancien rapport\r\n");
    bureau.Ecrire("ENQ.TRG", "Titre\r\nun\r\ndeux\r\ntrois\r\nA1   25.0 25.0 50.0\r\n");
    const auto avant = Fichiers(bureau);
    const Silence silence;
    Prendre(bureau, entree);
    const QList<Forme*> ouvertes = bureau.Ouvertes();
    if (ouvertes.isEmpty()) continue;  // a program without a form has run
    for (Forme* forme : ouvertes) QTest::keyClick(forme, Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_TRUE(bureau.Ouvertes().isEmpty());
    const auto apres = Fichiers(bureau);
    for (const auto& [nom, octets] : avant) EXPECT_TRUE(apres.contains(nom) && apres.at(nom) == octets) << nom;
    EXPECT_EQ(apres.size(), avant.size());
    ++quittees;
  }
  EXPECT_GE(quittees, 20U);
}

// A form that can't open for want of a file says so, and leaves the former report as well.
TEST(ToutesLesFormes, UnFichierAbsentLaisseLeRapport) {
  struct Cas {
    const char* action;
    const char* absent;
    const char* rapport;
  };
  for (const Cas& cas : {Cas{"mnuCroise", "ENQ.DAT", "ENQ.TCR"}, Cas{"mnuPosmod", "ENQ.POS", "ENQ.PRT"},
                         Cas{"mnuNomMod", "ENQ.POS", "ENQ.PRT"}, Cas{"mnuAnecar", "ENQ.BRT", "ENQ.ANA"},
                         Cas{"mnuGraphe", "ENQ.FAJ", "ENQ.PRT"}, Cas{"mnuTriang", "ENQ.TRG", "ENQ.PRT"}}) {
    SCOPED_TRACE(cas.action);
    BureauComplet bureau;
    bureau.Ecrire(cas.rapport, "un ancien rapport\r\n");
    std::filesystem::remove(bureau.Dossier() / cas.absent);
    const auto avant = Fichiers(bureau);
    const Silence silence;
    bureau.Menu(cas.action);
    EXPECT_TRUE(bureau.Ouvertes().isEmpty());
    EXPECT_TRUE(bureau.Texte().contains("n'existe pas")) << bureau.Texte().toStdString();
    EXPECT_TRUE(Fichiers(bureau) == avant);
  }
}

// The button that a form is there for.
QAbstractButton* BoutonDeLancement(const QWidget& forme) {
  for (const char* nom :
       {"BoutLancer", "BoutLancerTri", "BoutonTriapl", "Lancer", "BoutEnreg", "BoutonCAH", "OK", "BoutOK"})
    if (auto* bouton = forme.findChild<QAbstractButton*>(QString::fromUtf8(nom));
        bouton != nullptr && bouton->isVisible() && bouton->isEnabled())
      return bouton;
  for (auto* bouton : forme.findChildren<QPushButton*>())
    if (bouton->isDefault() && bouton->isVisible() && bouton->isEnabled()) return bouton;
  return nullptr;
}

// A report that Text1 can't hold closes the forms while the handler of one of them is on its way: no form is deleted
// before its handler has come back.
TEST(ToutesLesFormes, UnRapportLongNEnleveAucuneFormeASonGestionnaire) {
  for (const EntreeDeProgramme& entree : EntreesDeProgrammes()) {
    SCOPED_TRACE(entree.action);
    BureauComplet bureau;
    const Silence silence;
    quelvar::Dialogue& ecran = bureau.Fenetre().ServicesDesFormes().ecran;
    ecran.afficher = [afficher = ecran.afficher](quelvar::Affichage affichage) {
      affichage.ou = quelvar::Affichage::Ou::Lecteur;
      afficher(affichage);
    };
    Prendre(bureau, entree);
    for (Forme* ouverte : bureau.Ouvertes()) {
      const QPointer<Forme> forme = ouverte;
      QAbstractButton* bouton = BoutonDeLancement(*ouverte);
      if (bouton == nullptr) continue;
      bool revenu = false;
      bool tropTot = false;
      const QMetaObject::Connection veille =
          QObject::connect(ouverte, &QObject::destroyed, &bureau.Fenetre(), [&] { tropTot = !revenu; });
      QTest::mouseClick(bouton, Qt::LeftButton);
      revenu = true;
      EXPECT_FALSE(tropTot) << "deleted behind its own handler";
      if (!forme.isNull() && !forme->isVisible()) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return forme.isNull(); }, 2000)) << "a closed form goes";
      }
      QObject::disconnect(veille);
    }
  }
}

// Files that go while a form is open are a failure like another: it is told, or the form stays.
TEST(ToutesLesFormes, DesFichiersDisparusSontDits) {
  for (const EntreeDeProgramme& entree : EntreesDeProgrammes()) {
    SCOPED_TRACE(entree.action);
    if (std::string_view(entree.action) == "mnuImport") continue;  // its button asks for the file first
    BureauComplet bureau;
    const Silence silence;
    Prendre(bureau, entree);
    for (Forme* ouverte : bureau.Ouvertes()) {
      for (const auto& [nom, octets] : Fichiers(bureau))
        if (nom.starts_with("ENQ")) std::filesystem::remove(bureau.Dossier() / nom);
      const QPointer<Forme> forme = ouverte;
      bureau.Controle<QPlainTextEdit>("Text1").clear();
      QAbstractButton* bouton = BoutonDeLancement(*ouverte);
      if (bouton == nullptr) continue;
      QTest::mouseClick(bouton, Qt::LeftButton);
      EXPECT_TRUE((!forme.isNull() && forme->isVisible()) || !bureau.Texte().isEmpty());
      const bool tientTout = std::string_view(entree.action) == "mnuSupLignes";  // and writes it again
      EXPECT_TRUE(tientTout || !bureau.Texte().contains("Fin normale")) << bureau.Texte().toStdString();
    }
  }
}

}  // namespace
