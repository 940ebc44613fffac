#include "forms/cadre/principal2.h"

#include <QDir>
#include <QShortcut>

#include "forms/texte/texte_qt.h"
#include "sorts/recodage/recodage.h"
#include "sorts/triapl/triapl.h"
#include "ui_principal2.h"

namespace quelvar::forms {

namespace {

constexpr int kLimiteDeDepassements = 50;

}  // namespace

Principal2::Principal2(Principal& principal, Usage usage)
    : QDialog(&principal), principal_(principal), ui_(std::make_unique<Ui::Principal2>()) {
  ui_->setupUi(this);
  if (usage == Usage::Recodage) connect(ui_->BoutonTriapl, &QPushButton::clicked, this, &Principal2::LancerRecodage);
  else connect(ui_->BoutonTriapl, &QPushButton::clicked, this, &Principal2::LancerTriapl);
  connect(ui_->BoutonTriaplNull, &QPushButton::clicked, this, [this] {
    Reinitialiser();
    close();
  });
  connect(ui_->CaseTriang, &QCheckBox::toggled, this, [this](bool coche) {
    if (coche) ui_->BoutNRNon->setChecked(true);
  });
  connect(ui_->BoutonFermer, &QPushButton::clicked, this, &Principal2::close);
  connect(ui_->Repertoires, &ChoixRepertoire::Ouvert, this, [this](const QString& repertoire) {
    ListerInitialisations();
    principal_.OuvrirRepertoire(CheminDepuisQt(repertoire));
  });
  const auto ouvrir = [this] {
    const QListWidgetItem* ligne = ui_->FileDir->currentItem();
    if (ligne == nullptr) return;
    principal_.OuvrirInitialisation(CheminDepuisQt(QDir(ui_->Repertoires->Courant()).filePath(ligne->text())));
  };
  connect(ui_->FileDir, &QListWidget::itemDoubleClicked, this, ouvrir);
  for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Enter})
    connect(new QShortcut(touche, ui_->FileDir, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            ouvrir);
  if (usage == Usage::Repertoires) MontrerRepertoires();
  else MontrerOptionsTriapl();
  if (usage == Usage::Recodage) MontrerOptionsRecodage();
}

Principal2::~Principal2() = default;

void Principal2::MontrerRepertoires() {
  setWindowTitle(QStringLiteral("Répertoire en cours"));
  ui_->FrTriapl->hide();
  ui_->FrRepertoire->show();
  ui_->Repertoires->Aller(CheminVersQt(principal_.SessionEnCours().repertoire));
  ListerInitialisations();
  ui_->Repertoires->setFocus();
}

void Principal2::MontrerOptionsTriapl() {
  setWindowTitle(QStringLiteral("Options du tri à plat"));
  ui_->FrRepertoire->hide();
  ui_->FrTriapl->show();
  Reinitialiser();
  ui_->BoutonTriapl->setFocus();
}

// The recoding takes the boxes of the flat sort under other captions.
void Principal2::MontrerOptionsRecodage() {
  setWindowTitle(QStringLiteral("Options du recodage"));
  ui_->FrTriapl->setTitle(QStringLiteral("Options Outils"));
  ui_->BoutonTriapl->setText(QStringLiteral("&Lancer Outils"));
  ui_->CaseMod->hide();
  ui_->FrmNR->hide();
  ui_->CaseTriang->setText(QStringLiteral("&Ne garder que les recodées"));
  ui_->CaseTriang->setToolTip(
      QStringLiteral("L'option par défaut est de laisser inchangé l'ensemble des variables, recodées ou non"));
  ui_->CaseRepMult->setText(QStringLiteral("&Mettre les recodées à la fin"));
  ui_->CaseRepMult->setToolTip(QStringLiteral("Ne pas recoder sur place mais mettre les recodées à la fin"));
  ui_->CaseVerif->setText(QStringLiteral("Ne sont &prises que les sélectionnées"));
  ui_->CaseVerif->setToolTip(
      QStringLiteral("Par défaut toutes les questions du fichier *.POS sont prises, recodées, sélectionnées ou non"));
  const auto accorder = [this](bool seules) {
    QCheckBox* exclue = seules ? ui_->CaseRepMult : ui_->CaseVerif;
    exclue->setChecked(false);
    exclue->setEnabled(false);
    (seules ? ui_->CaseVerif : ui_->CaseRepMult)->setEnabled(true);
  };
  connect(ui_->CaseTriang, &QCheckBox::toggled, this, accorder);
  accorder(ui_->CaseTriang->isChecked());
}

void Principal2::Reinitialiser() {
  ui_->CaseMod->setChecked(true);
  ui_->BoutNROui->setChecked(true);
  for (QCheckBox* boite : {ui_->CaseTriang, ui_->CaseRepMult, ui_->CaseVerif, ui_->CaseDat}) boite->setChecked(false);
}

void Principal2::LancerTriapl() {
  const std::optional<std::string> donnees = FichierDeDonnees();
  if (!donnees) return;
  sorts::OptionsTriapl options;
  options.intitules = ui_->CaseMod->isChecked();
  options.nonReponses = ui_->BoutNROui->isChecked();
  options.triangulaire = ui_->CaseTriang->isChecked();
  options.reponsesMultiples = ui_->CaseRepMult->isChecked();
  options.limite = ui_->CaseVerif->isChecked() ? kLimiteDeDepassements : 0;
  options.fichierDonnees = *donnees;
  principal_.Lancer([&](const Contexte& contexte) { sorts::Triapl(contexte, options); });
  Reinitialiser();
  close();
}

namespace {

// The session follows a complete run to the new generic.
void Recoder(Principal& principal, sorts::OptionsRecodage options) {
  Session& session = principal.SessionEnCours();
  sorts::SuiteRecodage suite{session.generique, session.passerModalites};
  options.suite = &suite;
  Fin fin = Fin::Arret;
  principal.Lancer([&](const Contexte& contexte) { fin = sorts::Recodage(contexte, options); });
  session.passerModalites = suite.passerModalites;
  if (fin == Fin::Normale) principal.AdopterGenerique(suite.generique);
}

}  // namespace

void Principal2::LancerRecodage() {
  const std::optional<std::string> donnees = FichierDeDonnees();
  if (!donnees) return;
  sorts::OptionsRecodage options;
  options.seules = ui_->CaseTriang->isChecked();
  options.enFin = ui_->CaseRepMult->isChecked();
  options.toutesSelectionnees = !ui_->CaseVerif->isChecked();
  options.fichierDonnees = *donnees;
  Recoder(principal_, options);
  Reinitialiser();
  close();
}

std::optional<std::string> Principal2::FichierDeDonnees() {
  if (!ui_->CaseDat->isChecked()) return std::string();
  std::string choisi =
      principal_.Ecran().choisirFichier("Choix du fichier *.DAT", "Fichiers *.dat|*.dat|Tous fichiers *.*|*.*");
  if (choisi.empty()) return std::nullopt;
  const Chemin chemin = CheminDe(choisi);
  if (chemin.parent_path() == principal_.SessionEnCours().repertoire) choisi = TexteDe(chemin.filename());
  return choisi;
}

void Principal2::ListerInitialisations() {
  ui_->FileDir->clear();
  for (const QString& nom : QDir(ui_->Repertoires->Courant()).entryList({QStringLiteral("qvr2.ini")}, QDir::Files))
    ui_->FileDir->addItem(nom);
}

namespace {

// Opens the form anew: its boxes stand at their defaults each time.
void Ouvrir(Principal& principal, Principal2::Usage usage) {
  if (auto* ouverte = principal.Ouverte<Principal2>()) ouverte->close();
  principal.Montrer<Principal2>(usage);
}

}  // namespace

void OuvrirRepertoires(Principal& principal) { Ouvrir(principal, Principal2::Usage::Repertoires); }

void OuvrirTriapl(Principal& principal) {
  if (principal.SessionEnCours().niveau == 1)
    principal.Lancer([](const Contexte& contexte) { sorts::Triapl(contexte, {}); });
  else Ouvrir(principal, Principal2::Usage::Triapl);
}

void OuvrirOutils(Principal& principal) {
  if (principal.SessionEnCours().niveau == 1) Recoder(principal, {});
  else Ouvrir(principal, Principal2::Usage::Recodage);
}

}  // namespace quelvar::forms
