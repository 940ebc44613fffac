// The session in the main form: its start, the data set and the level in force, and what the window shows of them.
#include <QAction>
#include <QComboBox>
#include <QMenu>

#include "core/session/recents.h"
#include "forms/cadre/principal.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/ecran.h"
#include "forms/qt/texte.h"
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

}  // namespace

void Principal::Demarrer() {
  FixerTailleDEcran(QStringLiteral("mnuEcrAuto"));
  lanceur_.Garder([this] { CommencerLaSession(); });
  MontrerSession();
  NommerLesControles(*this);
}

void Principal::CommencerLaSession() {
  Demarrage demarrage = DemarrerSession(environnement_.repertoireProgramme);
  session_ = std::move(demarrage.session);
  resultats_->Remplacer(demarrage.texte);
  ReconstruireRecents();
  if (demarrage.aOuvrir) OuvrirEtRapporter();
  else resultats_->Ajouter(TexteDesTroisPas());
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
  Action(session_.niveau >= kNiveauAvance ? QStringLiteral("mnuNiv2") : QStringLiteral("mnuNiv1"))->setChecked(true);
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
  const QString chemin =
      services_.ChoisirAOuvrir({QStringLiteral("Options de recherche de fichier Qvr2.ini"),
                                CheminVersQt(session_.repertoire), QStringLiteral("Fichiers Qvr2.ini|Qvr2.ini")});
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
      connect(action, &QAction::triggered, this, Garde([this, f = *entree.fichier] { OuvrirInitialisation(f); }));
  }
}

}  // namespace quelvar::forms
