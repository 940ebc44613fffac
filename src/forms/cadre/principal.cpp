#include "forms/cadre/principal.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <algorithm>
#include <array>
#include <utility>

#include "core/programme/erreur.h"
#include "core/session/recents.h"
#include "forms/cadre/dialogue_qt.h"
#include "forms/cadre/entrees.h"
#include "forms/cadre/menus.h"
#include "forms/pieces/depot.h"
#include "forms/pieces/ecran.h"
#include "forms/programmes/capture/import/apercuimport.h"
#include "forms/programmes/capture/import/sourceimport.h"
#include "forms/texte/texte_qt.h"
#include "ui_principal.h"

namespace quelvar::forms {

namespace {

// Entries that wait for the first generic of a new use.
constexpr const char* kEntreesDeDonnees[] = {"mnuSaisie", "mnuImport"};

// What a first use comes down to, under the welcome.
std::string TexteDesTroisPas() {
  return Joindre(
      {"\r\nPour commencer, trois pas :\r\n"
       "   1. Prenez 'Importer un nouveau fichier...' à droite, ou déposez ici\r\n"
       "      le fichier de votre enquête (.csv, .txt, .ods, .xlsx, .dbf).\r\n"
       "      Il reste intact : ses données sont copiées à côté de lui.\r\n"
       "   2. Regardez l'aperçu : comment le fichier est lu, ce que devient\r\n"
       "      chaque colonne. Rien n'est écrit avant 'Importer'.\r\n"
       "   3. Prenez 'Tris' puis 'Tri à plat' : c'est votre premier résultat.\r\n"_w});
}

// Entries that read no file of the data set.
bool LitLaBase(const EntreeDeProgramme& entree) {
  constexpr std::string_view kSansLecture[] = {"mnuPrem", "mnuChangeRepert", "mnuAPropos"};
  return std::ranges::find(kSansLecture, std::string_view(entree.action)) == std::end(kSansLecture);
}

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
          formes_, [this] { return ContexteEnCours(); }, [this](const Erreur& erreur) { MontrerEchec(erreur); },
          [this] { return editeurs_->PermettreDeLire(session_.repertoire, session_.generique); }),
      aide_(environnement_.dossierAide, environnement_.ouvrir,
            [this](const QString& adresse) {
              dialogue_.demander(Joindre({"Aucun programme n'a pu ouvrir "_w, DepuisQt(adresse)}), Boutons::Ok);
            }),
      services_{*this,
                session_,
                dialogue_,
                lanceur_,
                formes_,
                aide_,
                [this](std::string_view generique) { AdopterGenerique(generique); },
                [this] { AdopterGenerique(std::string(session_.generique)); },
                [this](std::string_view texte) { resultats_->Remplacer(texte); },
                [this](const QString& entree) { return ProgrammeExiste(entree); },
                [this](const QString& entree) { Action(entree)->trigger(); },
                [this](const Chemin& initialisation) { return OuvrirInitialisation(initialisation); },
                [this](const QString& saisi) { return AccepterGenerique(saisi); },
                [this](bool nouvelle) { MontrerNouvelleUtilisation(nouvelle); }} {
  ui_->setupUi(this);
  repertoire_ = new QLabel(this);
  repertoire_->setObjectName(QStringLiteral("Repertoire"));
  repertoire_->setTextFormat(Qt::PlainText);
  iteration_ = new QLabel(this);
  iteration_->setObjectName(QStringLiteral("LabelIter"));
  progression_ = new QProgressBar(this);
  progression_->setObjectName(QStringLiteral("ProgressBar1"));
  progression_->setMaximumWidth(220);
  progression_->setVisible(false);
  ui_->BarreDEtat->addWidget(repertoire_, 1);
  ui_->BarreDEtat->addPermanentWidget(iteration_);
  ui_->BarreDEtat->addPermanentWidget(progression_);
  editeurs_ = std::make_unique<Editeurs>(
      *this, ServicesEditeur{environnement_.reglages, [this] { aide_.Ouvrir(QStringLiteral("mnuAEdAf")); },
                             [this](const QString& fichier) { return DemarrerLecteur(fichier); },
                             environnement_.dossierDeSecours});
  resultats_ = std::make_unique<Resultats>(
      Resultats::Controles{*ui_->Text1, *ui_->FichAff, *ui_->VerrouLignes, *ui_->VerrouColonnes}, session_, dialogue_,
      formes_, [this](const QString& fichier) { return DemarrerLecteur(fichier); }, nullptr);
  connect(resultats_.get(), &Resultats::Change, this, &Principal::PermettreEnregistrement);
  connect(resultats_.get(), &Resultats::TitreChange, this, &Principal::MontrerSession);
  sorties_ = std::make_unique<SortiesTexte>(*this, *resultats_, session_, dialogue_,
                                            [this](const QString& phrase) { Annoncer(phrase); });
  dialogue_ = EcranDesRuns();
  ConstruireMenus(*ui_->BarreDeMenus);
  RelierMenus();
  RelierControles();
  Demarrer();
}

Principal::~Principal() = default;

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

void Principal::Relier(const char* action, const std::function<void()>& effet) {
  QAction* entree = Action(QString::fromUtf8(action));
  Q_ASSERT(entree != nullptr);
  entree->setEnabled(true);
  connect(entree, &QAction::triggered, this, effet);
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
      if (!LitLaBase(entree) || lanceur_.PeutLancer()) entree.ouvrir(services_);
    });
  for (const EntreeDAffichage& entree : EntreesDAffichage())
    Relier(entree.nom, [this, &entree] { AfficherResultat(entree); });
  Relier("MnuAfPartielAll", [this] {
    const QString chemin = ChoisirFichier(QStringLiteral("Affichage partiel"));
    if (!chemin.isEmpty()) resultats_->MontrerPartiel(CheminDepuisQt(chemin), false);
  });
  Relier("mnuEnregSous", [this] { sorties_->EnregistrerSous(); });
  Relier("mnuImpr", [this] { sorties_->Imprimer(); });
  Relier("mnuPDF", [this] { sorties_->ImprimerEnPdf(); });
  for (const EntreeDAide& entree : EntreesDAide())
    Relier(entree.nom, [this, &entree] { aide_.Ouvrir(QString::fromUtf8(entree.nom)); });
  connect(ui_->BarreDeMenus->findChild<QMenu*>(QStringLiteral("mnuAffichage")), &QMenu::aboutToShow, this,
          &Principal::PreparerMenuAffichage);
  RelierEditeur();
  for (const EntreeDAide& entree : EntreesDAide()) {
    const QString nom = QString::fromUtf8(entree.nom);
    Action(nom)->setEnabled(aide_.Existe(nom));
  }
}

void Principal::RelierControles() {
  for (const int taille : {8, 9, 10, 11, 12}) ui_->TailleCar->addItem(QString::number(taille));
  ui_->TailleCar->setCurrentText(QStringLiteral("10"));
  connect(ui_->TailleCar, &QComboBox::currentTextChanged, this,
          [this](const QString& taille) { ui_->Text1->FixerTaille(taille.toInt()); });
  connect(ui_->CmdGenOui, &QPushButton::clicked, this, [this] { AccepterGenerique(ui_->ComboGen->currentText()); });
  ui_->ComboGen->setCompleter(nullptr);  // what is typed is the name
  connect(ui_->ComboGen->lineEdit(), &QLineEdit::returnPressed, this, [this] {
    if (ui_->ComboGen->findText(ui_->ComboGen->currentText()) < 0) ui_->CmdGenOui->click();  // else it is a choice
  });
  connect(ui_->ComboGen, &QComboBox::textActivated, this, &Principal::ChoisirGenerique);
  connect(ui_->CmdGenAncien, &QPushButton::clicked, this, [this] { ChoisirGenerique(VersQt(session_.ancien)); });
  connect(ui_->BoutonEnregS, &QPushButton::clicked, this, [this] { sorties_->EnregistrerSous(); });
  connect(ui_->BoutonImpr, &QPushButton::clicked, this, [this] { sorties_->Imprimer(); });
  connect(ui_->CmdGenNon, &QPushButton::clicked, this, [this] { resultats_->Remplacer({}); });
  connect(ui_->BoutNouv, &QPushButton::clicked, this, &Principal::NouvelleDemande);
  connect(ui_->BoutImport, &QPushButton::clicked, this, [this] { OuvrirSourceImport(services_); });
  new Depot(
      {this, ui_->Text1->viewport()},
      [this](const Chemin& fichier) {
        if (lanceur_.EnCours()) dialogue_.biper();
        else ImporterFichier(services_, fichier);
      },
      this);
  connect(ui_->BoutQuit, &QPushButton::clicked, this, &Principal::close);
}

// --- session ---

void Principal::Demarrer() {
  FixerTailleDEcran(QStringLiteral("mnuEcrAuto"));
  Demarrage demarrage = DemarrerSession(environnement_.repertoireProgramme);
  session_ = std::move(demarrage.session);
  resultats_->Remplacer(demarrage.texte);
  ReconstruireRecents();
  if (demarrage.aOuvrir) OuvrirEtRapporter();
  else resultats_->Ajouter(TexteDesTroisPas());
  MontrerSession();
  NommerLesControles(*this);
}

void Principal::OuvrirEtRapporter() {
  resultats_->Ajouter(OuvrirGenerique(session_, environnement_.reglages));
  const RapportRepertoire rapport = EtatRepertoire(session_);
  resultats_->Ajouter(rapport.texte);
  ProposerGeneriques(rapport.choix);
  ReconstruireRecents();
  MontrerSession();
  if (rapport.attendGenerique) ui_->ComboGen->setFocus();
}

// The list of generics; what is shown is the present one.
void Principal::ProposerGeneriques(const std::vector<std::string>& noms) {
  QStringList choix;
  for (const std::string& nom : noms) choix << VersQt(nom);
  ui_->ComboGen->clear();
  ui_->ComboGen->addItems(choix);
  ui_->ComboGen->setEditText(VersQt(session_.generique));
}

// The parts of the window that follow the session.
void Principal::MontrerSession() {
  setWindowTitle(VersQt(session_.titre));
  ui_->EnCours->setText(VersQt(session_.generique));
  ui_->OldGen->setText(VersQt(session_.ancien));
  repertoire_->setText(QStringLiteral("Répertoire : ") + VersQt(TexteRepertoire(session_.repertoire)));
  const bool nouvelle = session_.titre == kTitreNouvelleUtilisation;
  for (const char* entree : kEntreesDeDonnees) {
    const QString nom = QString::fromLatin1(entree);
    Action(nom)->setEnabled(!nouvelle && ProgrammeExiste(nom));
  }
  Action(session_.niveau == 2 ? QStringLiteral("mnuNiv2") : QStringLiteral("mnuNiv1"))->setChecked(true);
}

bool Principal::OuvrirInitialisation(const Chemin& initialisation) {
  if (!formes_.LaisserLeTravail()) return false;
  PrendreInitialisation(session_, initialisation);
  resultats_->Remplacer({});
  OuvrirEtRapporter();
  return true;
}

// A generic that is there to be chosen; the lines that stand for none leave the present one.
void Principal::ChoisirGenerique(const QString& choisi) {
  const std::string nom = DepuisQt(choisi);
  const bool aucun = nom == kAncienAbsent || nom == kLigneTirets;
  if (aucun) dialogue_.biper();
  if (!aucun && AccepterGenerique(choisi)) return;
  ui_->ComboGen->setEditText(VersQt(session_.generique));
}

bool Principal::AccepterGenerique(const QString& saisi) {
  if (!formes_.LaisserLeTravail()) return false;
  const Acceptation acceptation =
      quelvar::AccepterGenerique(session_, environnement_.reglages, NomDepuisUtf8(saisi.toStdString()));
  resultats_->Remplacer(acceptation.texte);
  if (!acceptation.acceptee) {
    ui_->ComboGen->clearEditText();
    dialogue_.biper();
    return false;
  }
  ui_->Text1->setFocus();
  OuvrirEtRapporter();
  return true;
}

void Principal::AdopterGenerique(std::string_view generique) {
  const std::string texte = quelvar::AdopterGenerique(session_, environnement_.reglages, generique);
  if (!texte.empty()) resultats_->Ajouter(texte);
  ProposerGeneriques(EtatRepertoire(session_).choix);
  ReconstruireRecents();
  MontrerSession();
}

void Principal::MontrerNouvelleUtilisation(bool nouvelle) {
  if (nouvelle) session_.titre = kTitreNouvelleUtilisation;
  else if (session_.titre == kTitreNouvelleUtilisation) session_.titre = TitreDe(session_);
  MontrerSession();
}

void Principal::ChangerNiveau(int niveau) {
  if (!formes_.Fermer()) {
    MontrerSession();  // the mark in the menu goes back
    return;
  }
  const std::string texte = quelvar::ChangerNiveau(session_, niveau);
  if (!texte.empty()) resultats_->Ajouter(texte);
  MontrerSession();
}

void Principal::ChercherInitialisation() {
  const QString chemin = QFileDialog::getOpenFileName(this, QStringLiteral("Options de recherche de fichier Qvr2.ini"),
                                                      CheminVersQt(session_.repertoire),
                                                      FiltreQt(QStringLiteral("Fichiers Qvr2.ini|Qvr2.ini")));
  if (!chemin.isEmpty()) OuvrirInitialisation(CheminDepuisQt(chemin));
}

void Principal::NouvelleDemande() {
  if (!formes_.Fermer()) return;
  progression_->setVisible(false);
  resultats_->Remplacer({});
  OuvrirEtRapporter();
  ui_->Text1->setFocus();
}

void Principal::ReconstruireRecents() {
  auto* menu = ui_->BarreDeMenus->findChild<QMenu*>(QStringLiteral("mnuFichier"));
  for (int rang = 0; rang <= kRecentsPrincipal.capacite; ++rang)
    delete Action(QStringLiteral("mnuRecentFile%1").arg(rang));
  const std::vector<EntreeRecente> entrees = FichiersRecents(environnement_.reglages);
  if (entrees.empty()) return;
  menu->addSeparator()->setObjectName(QStringLiteral("mnuRecentFile0"));
  int rang = 0;
  for (const EntreeRecente& entree : entrees) {
    QString titre = QString::fromStdString(entree.chemin) + QStringLiteral(" (") + VersQt(entree.generique) + u')';
    QAction* action = menu->addAction(titre.replace(u'&', QStringLiteral("&&")));
    action->setObjectName(QStringLiteral("mnuRecentFile%1").arg(++rang));
    action->setEnabled(entree.fichier.has_value());
    if (entree.fichier)
      connect(action, &QAction::triggered, this, [this, f = *entree.fichier] { OuvrirInitialisation(f); });
  }
}

void Principal::closeEvent(QCloseEvent* evenement) {
  if (lanceur_.EnCours() || !formes_.PeuventFermer() || !editeurs_->Fermer()) {
    evenement->ignore();
    return;
  }
  formes_.FermerSansDemander();
  ReconstruireRecents();
  try {
    EcrirePointeur(session_.repertoireProgramme, session_.initialisation);
  } catch (const Erreur&) {  // the next session starts without a data set
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

void Principal::MontrerEchec(const Erreur& erreur) {
  std::string texte;
  for (const std::string& ligne : LignesDErreur(erreur, {})) texte += ligne + "\r\n";
  resultats_->Remplacer(texte);
}

// --- results and editor ---

void Principal::PermettreEnregistrement(bool permis) {
  Action(QStringLiteral("mnuEnregSous"))->setEnabled(permis);
  ui_->BoutonEnregS->setEnabled(permis);
}

void Principal::PreparerMenuAffichage() {
  const Contexte contexte = ContexteEnCours();
  for (const EntreeDAffichage& entree : EntreesDAffichage())
    Action(QString::fromLatin1(entree.nom))
        ->setEnabled(!session_.generique.empty() && contexte.Chercher(entree.extension).has_value());
}

void Principal::AfficherResultat(const EntreeDAffichage& entree) {
  const Contexte contexte = ContexteEnCours();
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
  const Contexte contexte = ContexteEnCours();
  const std::string nom = contexte.Nom(extension);
  editeurs_->Ouvrir(CheminVersQt(CheminDEcriture(contexte.repertoire, nom)));
}

QString Principal::ChoisirFichier(const QString& titre) {
  return QFileDialog::getOpenFileName(this, titre, CheminVersQt(session_.repertoire),
                                      FiltreQt(QStringLiteral("Tous fichiers *.*|*.*")));
}

void Principal::Annoncer(const QString& texte) {
  constexpr int duree = 8000;  // milliseconds
  ui_->BarreDEtat->showMessage(texte, duree);
}

// --- size of the window ---

void Principal::FixerTailleDEcran(const QString& action) {
  Action(action)->setChecked(true);
  if (action == QStringLiteral("mnuEcrAuto")) {
    setWindowState(windowState() | Qt::WindowMaximized);
    return;
  }
  constexpr int colonnes = 80;  // a printed page
  constexpr int lignes = 45;
  const QFontMetrics police(ui_->Text1->font());
  const QSize autour = size() - ui_->Text1->viewport()->size();
  QSize page(colonnes * police.horizontalAdvance(u'0') + 12, lignes * police.lineSpacing());
  if (action == QStringLiteral("mnuEcr38")) page = page * 4 / 3;
  setWindowState(windowState() & ~Qt::WindowMaximized);
  resize((page + autour).boundedTo(PlaceSurLEcran(*this)));
}

}  // namespace quelvar::forms
