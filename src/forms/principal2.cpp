#include "forms/principal2.h"

#include <QDir>

#include "forms/texte_qt.h"
#include "sorts/triapl.h"
#include "ui_principal2.h"

namespace quelvar {

namespace {

constexpr int kLimiteDeDepassements = 50;

}  // namespace

Principal2::Principal2(Principal& principal, Usage usage)
    : QDialog(&principal), principal_(principal), ui_(std::make_unique<Ui::Principal2>()) {
  ui_->setupUi(this);
  connect(ui_->BoutonTriapl, &QPushButton::clicked, this, &Principal2::LancerTriapl);
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
  connect(ui_->FileDir, &QListWidget::itemDoubleClicked, this, [this](const QListWidgetItem* ligne) {
    principal_.OuvrirInitialisation(CheminDepuisQt(QDir(ui_->Repertoires->Courant()).filePath(ligne->text())));
  });
  if (usage == Usage::Repertoires) MontrerRepertoires();
  else MontrerOptionsTriapl();
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

void Principal2::Reinitialiser() {
  ui_->CaseMod->setChecked(true);
  ui_->BoutNROui->setChecked(true);
  for (QCheckBox* boite : {ui_->CaseTriang, ui_->CaseRepMult, ui_->CaseVerif, ui_->CaseDat}) boite->setChecked(false);
}

void Principal2::LancerTriapl() {
  const std::optional<std::string> donnees = FichierDeDonnees();
  if (!donnees) return;
  OptionsTriapl options;
  options.intitules = ui_->CaseMod->isChecked();
  options.nonReponses = ui_->BoutNROui->isChecked();
  options.triangulaire = ui_->CaseTriang->isChecked();
  options.reponsesMultiples = ui_->CaseRepMult->isChecked();
  options.limite = ui_->CaseVerif->isChecked() ? kLimiteDeDepassements : 0;
  options.fichierDonnees = *donnees;
  principal_.Lancer([&](const Contexte& contexte) { Triapl(contexte, options); });
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
  if (principal.SessionEnCours().niveau == 1) principal.Lancer([](const Contexte& contexte) { Triapl(contexte, {}); });
  else Ouvrir(principal, Principal2::Usage::Triapl);
}

}  // namespace quelvar
