#include "forms/cadre/principal.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <utility>

#include "core/panne/erreur.h"
#include "core/session/recents.h"
#include "forms/aide/documents.h"
#include "forms/cadre/menus/affichages.h"
#include "forms/cadre/menus/barre.h"
#include "forms/cadre/menus/entrees.h"
#include "forms/pieces/depot.h"
#include "forms/programmes/capture/import/ouverture.h"
#include "forms/programmes/capture/import/source.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/ecran.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "ui_principal.h"

namespace quelvar::forms {

namespace {

struct EntreeDEditeur {
  const char* nom;  // of the action
  const char* extension;
};

constexpr std::array kEntreesDEditeur = {EntreeDEditeur{"mnuEdDES", ".DES"}, EntreeDEditeur{"mnuEdPOS", ".POS"},
                                         EntreeDEditeur{"mnuEdTRG", ".TRG"}, EntreeDEditeur{"mnuEdMOD", ".MOD"}};

}  // namespace

Principal::Principal(Environnement environnement)
    : environnement_(std::move(environnement)),
      ui_(std::make_unique<Ui::Principal>()),
      lanceur_(
          formes_, [this] { return services_.ContexteEnCours(); },
          [this](const Erreur& erreur) { resultats_->MontrerEchec(erreur); },
          [this] { return editeurs_->PermettreDeLire(session_.repertoire, session_.generique); }),
      aide_(environnement_.dossierAide, environnement_.ouvrir,
            [this](const QString& adresse) {
              dialogue_.demander(Joindre({"Aucun programme n'a pu ouvrir "_w, DepuisQt(adresse)}), Boutons::Ok);
            }),
      services_{
          .fenetre = *this,
          .session = session_,
          .ecran = dialogue_,
          .lanceur = lanceur_,
          .formes = formes_,
          .aide = aide_,
          .adopterGenerique = [this](std::string_view generique) { AdopterGenerique(generique); },
          .relireGenerique = [this] { AdopterGenerique(std::string(session_.generique)); },
          .afficherTexte = [this](std::string_view texte) { resultats_->Remplacer(texte); },
          .programmeExiste = [this](const QString& entree) { return ProgrammeExiste(entree); },
          .ouvrirProgramme = [this](const QString& entree) { Action(entree)->trigger(); },
          .ouvrirInitialisation = [this](const Chemin& initialisation) { return OuvrirInitialisation(initialisation); },
          .accepterGenerique = [this](const QString& saisi) { return AccepterGenerique(saisi); },
          .montrerNouvelleUtilisation = [this](bool nouvelle) { MontrerNouvelleUtilisation(nouvelle); }} {
  ui_->setupUi(this);
  GarnirLaBarreDEtat();
  PreparerLesTextes();
  dialogue_ = EcranDesRuns();
  ConstruireMenus(*ui_->BarreDeMenus);
  RelierMenus();
  RelierControles();
  Demarrer();
}

Principal::~Principal() = default;

void Principal::GarnirLaBarreDEtat() {
  constexpr int largeurDeLaProgression = 220;  // pixels: the directory keeps the rest of a window of 640
  repertoire_ = new QLabel(this);
  repertoire_->setObjectName(QStringLiteral("Repertoire"));
  repertoire_->setTextFormat(Qt::PlainText);
  iteration_ = new QLabel(this);
  iteration_->setObjectName(QStringLiteral("LabelIter"));
  progression_ = new QProgressBar(this);
  progression_->setObjectName(QStringLiteral("ProgressBar1"));
  progression_->setMaximumWidth(largeurDeLaProgression);
  progression_->setVisible(false);
  ui_->BarreDEtat->addWidget(repertoire_, 1);
  ui_->BarreDEtat->addPermanentWidget(iteration_);
  ui_->BarreDEtat->addPermanentWidget(progression_);
}

// The editors, Text1, and where its text goes.
void Principal::PreparerLesTextes() {
  const auto lecteur = [this](const QString& fichier) { return DemarrerLecteur(fichier); };
  editeurs_ = std::make_unique<Editeurs>(
      *this, ServicesEditeur{environnement_.reglages, [this] { aide_.Ouvrir(QStringLiteral("mnuAEdAf")); }, lecteur,
                             environnement_.dossierDeSecours});
  resultats_ = std::make_unique<Resultats>(
      Resultats::Controles{*ui_->Text1, *ui_->FichAff, *ui_->VerrouLignes, *ui_->VerrouColonnes}, session_, dialogue_,
      formes_, lecteur, nullptr);
  connect(resultats_.get(), &Resultats::Change, this, &Principal::PermettreEnregistrement);
  connect(resultats_.get(), &Resultats::TitreChange, this, &Principal::MontrerSession);
  sorties_ = std::make_unique<SortiesTexte>(*this, *resultats_, session_, dialogue_,
                                            [this](const QString& phrase) { Annoncer(phrase); });
}

// A file that a run is given to read may be open in the editor.
Dialogue Principal::EcranDesRuns() {
  Dialogue ecran = DialogueQt({this, progression_, iteration_,
                               [this](const Affichage& affichage) { resultats_->Presenter(affichage); },
                               [this] { return lanceur_.EnCours(); }});
  ecran.choisirFichier = [this, choisir = ecran.choisirFichier](std::string_view titre, std::string_view filtre) {
    std::string choisi = choisir(titre, filtre);
    const bool permis = choisi.empty() || editeurs_->PermettreDeLire(VersQt(choisi));
    return permis ? choisi : std::string();
  };
  return ecran;
}

bool Principal::DemarrerLecteur(const QString& fichier) {
  return environnement_.demarrer(QStringLiteral("quelvar-lecteur"), {fichier});
}

QAction* Principal::Action(const QString& nom) const { return ui_->BarreDeMenus->findChild<QAction*>(nom); }

Gestes Principal::Garde(Gestes gestes) const {
  return [this, gestes = std::move(gestes)] { lanceur_.Garder(gestes); };
}

void Principal::Relier(const char* action, const Gestes& effet) {
  QAction* entree = Action(QString::fromUtf8(action));
  Q_ASSERT(entree != nullptr);
  entree->setEnabled(true);
  connect(entree, &QAction::triggered, this, Garde(effet));
}

void Principal::RelierMenus() {
  Relier("mnuPreced", [this] { OuvrirInitialisation(CheminInitialisation(session_.repertoire)); });
  Relier("mnuChercher", [this] { ChercherInitialisation(); });
  Relier("mnuNiv1", [this] { ChangerNiveau(1); });
  Relier("mnuNiv2", [this] { ChangerNiveau(2); });
  for (const char* taille : {"mnuEcr35", "mnuEcr38", "mnuEcrAuto"})
    Relier(taille, [this, taille] { FixerTailleDEcran(QString::fromLatin1(taille)); });
  Relier("mnuQuitter", [this] { close(); });
  for (const EntreeDeProgramme& entree : EntreesDeProgrammes())
    Relier(entree.action, [this, entree] {
      if (!entree.litLaBase || lanceur_.PeutLancer()) entree.ouvrir(services_);
    });
  for (const EntreeDAffichage& entree : EntreesDAffichage())
    Relier(entree.nom, [this, &entree] { AfficherResultat(entree); });
  Relier("MnuAfPartielAll", [this] {
    const QString chemin = ChoisirFichier(QStringLiteral("Affichage partiel"));
    if (!chemin.isEmpty()) resultats_->MontrerPartiel(CheminDepuisQt(chemin), false);
  });
  Relier("mnuEnregSous", [this] { sorties_->EnregistrerSous(); });
  Relier("mnuImpr", [this] { sorties_->DemanderImpression(); });
  Relier("mnuPDF", [this] { sorties_->DemanderPdf(); });
  for (const EntreeDAide& entree : EntreesDAide())
    Relier(entree.nom, [this, &entree] { aide_.Ouvrir(QString::fromUtf8(entree.nom)); });
  connect(ui_->BarreDeMenus->findChild<QMenu*>(QStringLiteral("mnuAffichage")), &QMenu::aboutToShow, this,
          Garde([this] { PreparerMenuAffichage(); }));
  RelierEditeur();
  for (const EntreeDAide& entree : EntreesDAide()) {
    const QString nom = QString::fromUtf8(entree.nom);
    Action(nom)->setEnabled(aide_.Existe(nom));
  }
}

void Principal::RelierControles() {
  for (int taille = kTailleUsuelle - 2; taille <= kTailleUsuelle + 2; ++taille)
    ui_->TailleCar->addItem(QString::number(taille));
  ui_->TailleCar->setCurrentText(QString::number(kTailleUsuelle));
  connect(ui_->TailleCar, &QComboBox::currentTextChanged, this,
          [this](const QString& taille) { ui_->Text1->FixerTaille(taille.toInt()); });
  connect(ui_->CmdGenOui, &QPushButton::clicked, this,
          Garde([this] { AccepterGenerique(ui_->ComboGen->currentText()); }));
  ui_->ComboGen->setCompleter(nullptr);  // what is typed is the name
  connect(ui_->ComboGen->lineEdit(), &QLineEdit::returnPressed, this, [this] {
    if (ui_->ComboGen->findText(ui_->ComboGen->currentText()) < 0) ui_->CmdGenOui->click();  // else it is a choice
  });
  connect(ui_->ComboGen, &QComboBox::textActivated, this,
          [this](const QString& choisi) { lanceur_.Garder([&] { ChoisirGenerique(choisi); }); });
  connect(ui_->CmdGenAncien, &QPushButton::clicked, this, Garde([this] { ChoisirGenerique(VersQt(session_.ancien)); }));
  connect(ui_->BoutonEnregS, &QPushButton::clicked, this, Garde([this] { sorties_->EnregistrerSous(); }));
  connect(ui_->BoutonImpr, &QPushButton::clicked, this, Garde([this] { sorties_->DemanderImpression(); }));
  connect(ui_->CmdGenNon, &QPushButton::clicked, this, [this] { resultats_->Remplacer({}); });
  connect(ui_->BoutNouv, &QPushButton::clicked, this, Garde([this] { NouvelleDemande(); }));
  connect(ui_->BoutImport, &QPushButton::clicked, this, Garde([this] { OuvrirSourceImport(services_); }));
  new Depot(
      {this, ui_->Text1->viewport()},
      [this](const Chemin& fichier) {
        if (lanceur_.EnCours()) dialogue_.biper();
        else lanceur_.Garder([&] { ImporterFichier(services_, fichier); });
      },
      this);
  connect(ui_->BoutQuit, &QPushButton::clicked, this, &Principal::close);
}

void Principal::closeEvent(QCloseEvent* evenement) {
  if (lanceur_.EnCours() || !formes_.PeuventFermer() || !editeurs_->Fermer()) {
    evenement->ignore();
    return;
  }
  formes_.FermerSansDemander();
  try {
    ReconstruireRecents();
    EcrirePointeur(session_.repertoireProgramme, session_.initialisation);
  } catch (const std::exception&) {  // the next session starts without a data set
  }
  QDir::setCurrent(CheminVersQt(session_.repertoireProgramme));
  QMainWindow::closeEvent(evenement);
}

// --- programs and forms ---

bool Principal::ProgrammeExiste(const QString& action) const {
  const auto entrees = EntreesDeProgrammes();
  return std::any_of(entrees.begin(), entrees.end(),
                     [&](const EntreeDeProgramme& entree) { return action == QString::fromLatin1(entree.action); });
}

// --- results and editor ---

void Principal::PermettreEnregistrement(bool permis) {
  Action(QStringLiteral("mnuEnregSous"))->setEnabled(permis);
  ui_->BoutonEnregS->setEnabled(permis);
}

void Principal::PreparerMenuAffichage() {
  const Contexte contexte = services_.ContexteEnCours();
  for (const EntreeDAffichage& entree : EntreesDAffichage())
    Action(QString::fromLatin1(entree.nom))
        ->setEnabled(!session_.generique.empty() && contexte.Chercher(entree.extension).has_value());
}

void Principal::AfficherResultat(const EntreeDAffichage& entree) {
  const Contexte contexte = services_.ContexteEnCours();
  const std::optional<Chemin> fichier = contexte.Chercher(entree.extension);
  if (!fichier) resultats_->MontrerEchec(CheminDe(contexte.Nom(entree.extension)), Erreur(kFichierIntrouvable));
  else if (entree.genre == GenreDAffichage::Entier) resultats_->MontrerEntier(*fichier);
  else resultats_->MontrerPartiel(*fichier, entree.genre == GenreDAffichage::SousRegle);
}

void Principal::RelierEditeur() {
  for (const EntreeDEditeur& entree : kEntreesDEditeur)
    Relier(entree.nom, [this, &entree] { EditerFichierDuGenerique(entree.extension); });
  Relier("mnuEdAutres", [this] {
    const QString chemin = ChoisirFichier(QStringLiteral("Ouvrir dans l'éditeur"));
    if (!chemin.isEmpty()) editeurs_->Ouvrir(chemin);
  });
  Relier("mnuEdWordpad", [this] {
    const QString chemin = ChoisirFichier(QStringLiteral("Ouvrir dans le lecteur"));
    if (!chemin.isEmpty()) resultats_->LireAilleurs(CheminDepuisQt(chemin));
  });
  connect(findChild<QMenu*>(QStringLiteral("mnuEditeur")), &QMenu::aboutToShow, this, [this] {
    for (const EntreeDEditeur& entree : kEntreesDEditeur)
      Action(QString::fromLatin1(entree.nom))->setEnabled(!session_.generique.empty());
  });
}

void Principal::EditerFichierDuGenerique(const char* extension) {
  const Contexte contexte = services_.ContexteEnCours();
  const std::string nom = contexte.Nom(extension);
  editeurs_->Ouvrir(CheminVersQt(CheminDEcriture(contexte.repertoire, nom)));
}

QString Principal::ChoisirFichier(const QString& titre) {
  return services_.ChoisirAOuvrir({titre, CheminVersQt(session_.repertoire), QStringLiteral("Tous fichiers *.*|*.*")});
}

void Principal::Annoncer(const QString& texte) { ui_->BarreDEtat->showMessage(texte, kDureeDUnePhrase); }

// --- size of the window ---

void Principal::FixerTailleDEcran(const QString& action) {
  Action(action)->setChecked(true);
  if (action == QStringLiteral("mnuEcrAuto")) {
    setWindowState(windowState() | Qt::WindowMaximized);
    return;
  }
  constexpr int colonnes = 80;  // a printed page
  constexpr int lignes = 45;
  constexpr int bords = 12;  // pixels of the frame and the margins of the text
  const QFontMetrics police(ui_->Text1->font());
  // A report that is longer or wider than the page brings its bars, which are not to cover any of it.
  const QSize barres(ui_->Text1->verticalScrollBar()->sizeHint().width(),
                     ui_->Text1->horizontalScrollBar()->sizeHint().height());
  const QSize autour = size() - ui_->Text1->maximumViewportSize() + barres;
  QSize page(colonnes * police.horizontalAdvance(u'0') + bords, lignes * police.lineSpacing());
  if (action == QStringLiteral("mnuEcr38")) page = page * 4 / 3;
  setWindowState(windowState() & ~Qt::WindowMaximized);
  resize((page + autour).boundedTo(PlaceSurLEcran(*this)));
}

}  // namespace quelvar::forms
