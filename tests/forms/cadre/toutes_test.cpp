// What holds for every window behind the menu, whichever is added: letters, names, tab order, size, and a long report
// at the end of its run.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <utility>

#include "forms/bureaucomplet.h"
#include "forms/cadre/menus/entrees.h"
#include "forms/editeur/frmfind.h"
#include "forms/editeur/frmsdi.h"
#include "forms/programmes/capture/import/apercu/apercu.h"
#include "forms/programmes/capture/import/fimport.h"
#include "forms/programmes/capture/import/ouverture.h"
#include "forms/programmes/capture/import/source.h"
#include "forms/programmes/capture/saisiedes.h"
#include "forms/programmes/crosstab/choixvar.h"
#include "forms/programmes/factor/profilmod.h"
#include "forms/programmes/text/concord.h"
#include "forms/qt/ecran.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauComplet;
using essai::Cliquer;
using essai::CliquerLigne;
using essai::ContenuDe;
using essai::Silence;
using essai::Taper;
using essai::VerifierControles;

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

// The boxes that its launch opens, answered yes; a text is taken as proposed, a file is the data.
class Oui : public QObject {
 public:
  explicit Oui(const Bureau& bureau) : bureau_(bureau) { qApp->installEventFilter(this); }
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    auto* boite = qobject_cast<QDialog*>(objet);
    if (boite != nullptr && evenement->type() == QEvent::Show && boite->isModal())
      QTimer::singleShot(0, boite, [this, boite] {
        if (auto* champ = boite->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
          champ->setText(QString::fromStdString((bureau_.Dossier() / "ENQ.DAT").string()));
        auto* message = qobject_cast<QMessageBox*>(boite);
        QAbstractButton* oui = message == nullptr ? nullptr : message->button(QMessageBox::Yes);
        if (oui != nullptr) oui->click();
        else QTest::keyClick(boite, Qt::Key_Return);
      });
    return QObject::eventFilter(objet, evenement);
  }

 private:
  const Bureau& bureau_;
};

// Every class of form: how it comes up, what is chosen in it before its run can start, and the button that starts the
// run; none where nothing is launched.
struct Ouverture {
  const char* classe;
  std::function<void(BureauComplet&)> ouvrir;
  std::function<void(const QWidget&)> choisir = {};
  const char* bouton = nullptr;
  bool rapport = true;  // whether its run ends in one
};

std::function<void(BureauComplet&)> ParLeMenu(const char* entree) {
  return [entree](BureauComplet& bureau) { bureau.Menu(entree); };
}

// On a table of words.
std::function<void(BureauComplet&)> SurDesMots(const char* entree) {
  return [entree](BureauComplet& bureau) {
    bureau.Ecrire("ENQ.MOD", "ENQ\r\n LIGN=2 LSUP=0 COL=2 FMT=1 DE=0 \r\nSEX1   H\r\nSEX2   F\r\n");
    bureau.Ecrire("ENQ.BRT", "   211un\r\n   312deux\r\n");
    bureau.Menu(entree);
  };
}

template <class F>
std::function<void(BureauComplet&)> Directement() {
  return [](BureauComplet& bureau) { Montrer<F>(bureau.Fenetre().ServicesDesFormes()); };
}

void ChoisirLigne(const QWidget& forme, const char* liste, const char* bouton, int ligne = 0) {
  CliquerLigne(forme, liste, ligne);
  Cliquer(forme, bouton);
}

void DemanderUnTableau(const QWidget& forme) {
  Cliquer(forme, "BoutUnSeul");
  ChoisirLigne(forme, "ListVar1", "BoutLignePlus", 0);
  ChoisirLigne(forme, "ListVar1", "BoutColPlus", 1);
}

void CoderUneRegression(const QWidget& forme) {
  CliquerLigne(forme, "ListPos", 0);
  CliquerLigne(forme, "Listmod", 0);
  Cliquer(forme, "BqExpliq");
  for (const int question : {1, 2}) {
    CliquerLigne(forme, "ListPos", question);
    CliquerLigne(forme, "Listmod", 0);
  }
}

void DecrireUneQuestion(const QWidget& forme) {
  Taper(forme, "TextMod", "SEX");
  Bureau::Dans<QComboBox>(forme, "CodeMax").setEditText("2");
  Cliquer(forme, "BoutCont");
}

const Ouverture kOuvertures[] = {
    {"Prem", ParLeMenu("mnuPrem")},
    {"RepertoireEnCours", ParLeMenu("mnuChangeRepert")},
    {"FrmAbout", ParLeMenu("mnuAPropos")},
    {"Saisief", ParLeMenu("mnuSaisie"), {}, "BoutArret"},
    {"SaisieDes", Directement<SaisieDes>(), DecrireUneQuestion, "BoutEnreg", false},
    {"SourceImport", [](BureauComplet& b) { OuvrirSourceImport(b.Fenetre().ServicesDesFormes()); }},
    {"ApercuImport",
     [](BureauComplet& b) {
       b.Ecrire("t.csv", "Sexe;Age;Note\r\nFemme;23;1\r\nHomme;41;2\r\nFemme;35;2\r\nHomme;52;3\r\n");
       ImporterFichier(b.Fenetre().ServicesDesFormes(), b.Dossier() / "t.csv");
     },
     {},
     "Lancer"},
    {"FImport", Directement<FImport>(), {}, "Lancer"},
    {"FImportCSV", ParLeMenu("mnuImport"), [](const QWidget& f) { Cliquer(f, "CheckTrg"); }, "Lancer"},
    {"ChoixTriapl", ParLeMenu("mnuTriapl"), {}, "BoutonTriapl"},
    {"ChoixRecodage", ParLeMenu("mnuOutils"), {}, "BoutonTriapl"},
    {"PrepRecod", ParLeMenu("mnuPrepRecod")},
    {"ChoixVar", ParLeMenu("mnuCroise"), DemanderUnTableau, "BoutLancerTri"},
    {"Graphe2",
     [](BureauComplet& b) {
       const QWidget& demande = b.Demander<ChoixVar>("mnuCroise");
       DemanderUnTableau(demande);
       Cliquer(demande, "BoutLancerTri");
     }},
    {"Graphe", ParLeMenu("mnuTriang"), {}, "BoutonQuitter"},
    {"NomQuest", ParLeMenu("mnuNomQuest"), {}, "BoutEnreg"},
    {"NomeMod", ParLeMenu("mnuNomMod"), [](const QWidget& f) { ChoisirLigne(f, "ListQuest", "BoutPlus"); },
     "BoutLancer"},
    {"ChoixVarInt", ParLeMenu("mnuVarInt"), [](const QWidget& f) { ChoisirLigne(f, "ListVar1", "BoutActPlus"); },
     "BoutLancer"},
    {"ChoixPosmod", ParLeMenu("mnuPosmod"), {}, "BoutLancer"},
    {"ModifMod", ParLeMenu("mnuModifMod"), {}, "BoutEnreg"},
    {"ChoixEcapem", ParLeMenu("mnuEcapem"), {}, "Lancer"},
    {"ChoixAnecar", ParLeMenu("mnuAnecar"), {}, "BoutEnreg"},
    {"Graphe3", ParLeMenu("mnuGraphe"), [](const QWidget& f) { Cliquer(f, "CheckCAH"); }, "BoutonCAH"},
    {"ExportCsv", ParLeMenu("mnexportCSV"), {}, "Lancer"},
    {"PrepText", ParLeMenu("mnuPrepText"), [](const QWidget& f) { Cliquer(f, "CmdFichDAT"); }, "BtLancer"},
    {"SaisieMot", ParLeMenu("mnuImpMot"), [](const QWidget& f) { Taper(f, "TbPos", "1"); }, "CbLancer"},
    {"TabMot", ParLeMenu("mnuTabMot"), [](const QWidget& f) { ChoisirLigne(f, "ListVar1", "BoutActPlus"); },
     "CbLancer"},
    {"Concord",
     [](BureauComplet& b) { OuvrirConcord(b.Fenetre().ServicesDesFormes(), quelvar::text::CherchesDesMots({"mot"})); }},
    {"SuplMot", SurDesMots("mnuSupLignes"), {}, "BoutEnreg"},
    {"TabMotAgreg", SurDesMots("mnuTabMotAgreg"),
     [](const QWidget& f) {
       Bureau::Dans<QListWidget>(f, "ListLignSuppl").selectAll();
       Taper(f, "TextModLign", "tout");
       Cliquer(f, "BtEnreg");
     },
     "BtFin"},
    {"ModifModR", ParLeMenu("mnuModifModR"), CoderUneRegression, "BoutEnreg"},
    {"ProfilMod", ParLeMenu("mnuProfil"), [](const QWidget& f) { CliquerLigne(f, "ListSuppl", 0); }, "BoutEnreg"},
    {"FenetreDessin",
     [](BureauComplet& b) {
       const QWidget& choix = b.Demander<ProfilMod>("mnuProfil");
       CliquerLigne(choix, "ListSuppl", 0);
       Cliquer(choix, "BoutEnreg");
     }},
    {"Utilitaires", ParLeMenu("mnuUtil"),
     [](const QWidget& f) {
       Cliquer(f, {"OptHexDump", "CmdFichA"});
     },
     "Lancer"},
};

QString Classe(const QObject& forme) { return QString::fromLatin1(forme.metaObject()->className()).section("::", -1); }

// The form of that class, brought up.
quelvar::forms::Forme& Ouvrir(BureauComplet& bureau, const Ouverture& ouverture) {
  ouverture.ouvrir(bureau);
  QCoreApplication::processEvents();
  for (Forme* forme : bureau.Ouvertes())
    if (Classe(*forme) == QString::fromLatin1(ouverture.classe)) return *forme;
  throw std::runtime_error(std::string("does not come up: ") + ouverture.classe);
}

// The classes that are forms, as their headers say.
QStringList ClassesDeFormes() {
  static const QRegularExpression classe(QStringLiteral("class (\\w+) : public Forme \\{"));
  QStringList classes;
  for (const auto& entree : std::filesystem::recursive_directory_iterator(QUELVAR_FORMULAIRES)) {
    if (entree.path().extension() != ".h") continue;
    const QString octets = QString::fromStdString(quelvar::LireOctets(entree.path()));
    for (auto trouve = classe.globalMatch(octets); trouve.hasNext();) classes << trouve.next().captured(1);
  }
  classes.sort();
  return classes;
}

// The controls as the Tab key goes from one to the next; of radio buttons it meets the one that is ticked then.
QStringList Tabulation(const QWidget& fenetre) {
  QStringList noms;
  for (const QWidget* suivant = fenetre.nextInFocusChain(); suivant != &fenetre; suivant = suivant->nextInFocusChain())
    if (suivant->focusPolicy() != Qt::NoFocus && suivant->focusProxy() == nullptr && !suivant->objectName().isEmpty())
      noms << suivant->objectName();
  return noms;
}

void VerifierOnglets(Forme& forme) {
  auto* onglets = forme.findChild<QTabWidget*>();
  for (int rang = 0; rang < (onglets == nullptr ? 1 : onglets->count()); ++rang) {
    if (onglets != nullptr) onglets->setCurrentIndex(rang);
    VerifierControles(forme);
  }
}

// The first box or option button on the window that was not pressed yet.
QAbstractButton* ACocher(const Forme& forme, const QSet<QAbstractButton*>& faits) {
  const auto boutons = forme.findChildren<QAbstractButton*>();
  const auto trouve = std::find_if(boutons.begin(), boutons.end(), [&](QAbstractButton* bouton) {
    const bool choix = qobject_cast<QCheckBox*>(bouton) != nullptr || qobject_cast<QRadioButton*>(bouton) != nullptr;
    return choix && bouton->isVisible() && bouton->isEnabled() && !faits.contains(bouton);
  });
  return trouve == boutons.end() ? nullptr : *trouve;
}

// Every box and option button pressed once, those that others reveal as well: what stands on the window then is looked
// at each time.
std::size_t VerifierChoix(Forme& forme) {
  QSet<QAbstractButton*> faits;
  auto* onglets = forme.findChild<QTabWidget*>();
  for (int rang = 0; rang < (onglets == nullptr ? 1 : onglets->count()); ++rang) {
    if (onglets != nullptr) onglets->setCurrentIndex(rang);
    while (QAbstractButton* const bouton = ACocher(forme, faits)) {
      SCOPED_TRACE(bouton->objectName().toStdString() + " pressed");
      faits.insert(bouton);
      bouton->click();
      QCoreApplication::processEvents();
      if (!forme.isVisible()) return static_cast<std::size_t>(faits.size());
      VerifierControles(forme);
    }
  }
  return static_cast<std::size_t>(faits.size());
}

// What holds for every form, on each of its tabs, as it stands on a large screen and behind the bars of a small one.
void VerifierForme(Forme& forme) {
  VerifierOnglets(forme);
  const QStringList tabulation = Tabulation(forme);
  VerifierTaille(forme);
  QCoreApplication::processEvents();
  EXPECT_EQ(Tabulation(forme), tabulation);
  SCOPED_TRACE("on a small screen");
  VerifierOnglets(forme);
}

TEST(ToutesLesFormes, LettresNomsTabulationTaille) {
  QStringList vues;
  std::size_t boites = 0;
  std::size_t choix = 0;
  for (const Ouverture& ouverture : kOuvertures) {
    SCOPED_TRACE(ouverture.classe);
    BureauComplet bureau;
    const Silence silence;
    Forme& forme = Ouvrir(bureau, ouverture);
    VerifierForme(forme);
    boites += VerifierBoites(forme);
    vues << Classe(forme);
    choix += VerifierChoix(forme);
  }
  vues.sort();
  EXPECT_EQ(vues, ClassesDeFormes()) << "a form that no line of the table opens";
  EXPECT_GE(boites, 20U) << "of the equivalent commands";
  EXPECT_GE(choix, 100U) << "boxes and option buttons";
}

// At level 1 the forms show less; the menu is walked, so that no entry is left out.
TEST(ToutesLesFormes, ToutesLesEntreesDuMenuAuNiveauUn) {
  std::size_t ouvertes = 0;
  for (const EntreeDeProgramme& entree : EntreesDeProgrammes()) {
    SCOPED_TRACE(entree.action);
    BureauComplet bureau(1);
    const Silence silence;
    Prendre(bureau, entree);
    for (Forme* forme : bureau.Ouvertes()) {
      VerifierForme(*forme);
      ++ouvertes;
    }
  }
  EXPECT_GE(ouvertes, 20U);
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

// A report that Text1 can't hold closes the forms while the handler of one of them is on its way: no form is deleted
// before its handler has come back.
TEST(ToutesLesFormes, UnRapportLongNEnleveAucuneFormeASonGestionnaire) {
  int lancees = 0;
  for (const Ouverture& ouverture : kOuvertures) {
    if (ouverture.bouton == nullptr) continue;
    SCOPED_TRACE(ouverture.classe);
    BureauComplet bureau;
    int longs = 0;
    quelvar::Dialogue& ecran = bureau.Fenetre().ServicesDesFormes().ecran;
    const Oui oui(bureau);
    const QPointer<Forme> forme = &Ouvrir(bureau, ouverture);
    if (ouverture.choisir) ouverture.choisir(*forme);
    ecran.afficher = [&longs, afficher = ecran.afficher](quelvar::Affichage affichage) {
      affichage.ou = quelvar::Affichage::Ou::Lecteur;
      ++longs;
      afficher(affichage);
    };
    bool revenu = false;
    bool tropTot = false;
    QObject::connect(forme, &QObject::destroyed, &bureau.Fenetre(), [&] { tropTot = tropTot || !revenu; });
    auto& bouton = Bureau::Dans<QAbstractButton>(*forme, ouverture.bouton);
    if (!bouton.isVisibleTo(forme) || !bouton.isEnabled()) {
      ADD_FAILURE() << ouverture.bouton << " cannot be pressed";
      continue;
    }
    bouton.click();
    revenu = true;
    ++lancees;
    QCoreApplication::processEvents();  // a run that follows the leaving of a form
    EXPECT_EQ(longs > 0, ouverture.rapport) << bureau.Texte().toStdString();
    EXPECT_FALSE(tropTot) << "deleted behind its own handler";
    if (!forme.isNull() && !forme->isVisible()) {
      EXPECT_TRUE(QTest::qWaitFor([&] { return forme.isNull(); }, 2000)) << "a closed form goes";
    }
  }
  EXPECT_GE(lancees, 26);
}

// Files that go while a form is open are a failure like another: it is told, or the form stays.
TEST(ToutesLesFormes, DesFichiersDisparusSontDits) {
  for (const Ouverture& ouverture : kOuvertures) {
    if (ouverture.bouton == nullptr || !ouverture.rapport) continue;
    SCOPED_TRACE(ouverture.classe);
    BureauComplet bureau;
    const Silence silence;
    const QPointer<Forme> forme = &Ouvrir(bureau, ouverture);
    if (ouverture.choisir) ouverture.choisir(*forme);
    for (const auto& [nom, octets] : Fichiers(bureau))
      if (nom.starts_with("ENQ")) std::filesystem::remove(bureau.Dossier() / nom);
    bureau.Controle<QPlainTextEdit>("Text1").clear();
    Bureau::Dans<QAbstractButton>(*forme, ouverture.bouton).click();
    QCoreApplication::processEvents();
    EXPECT_TRUE((!forme.isNull() && forme->isVisible()) || !bureau.Texte().isEmpty());
    const std::string_view classe = ouverture.classe;
    // These have all that they write, or read another file.
    const bool tientTout = classe == "SuplMot" || classe == "SaisieDes" || classe == "Saisief" ||
                           classe == "ApercuImport" || classe == "Graphe";
    EXPECT_TRUE(tientTout || !bureau.Texte().contains("Fin normale")) << bureau.Texte().toStdString();
  }
}

}  // namespace
