#include "forms/programmes/session/prem.h"

#include <QDir>
#include <QLayout>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/session/session.h"
#include "forms/qt/texte.h"
#include "ui_prem.h"

namespace quelvar::forms {

namespace {

// A directory that may not be entered holds none that could be read.
bool EstLa(const Chemin& initialisation) {
  std::error_code ignore;
  return std::filesystem::exists(initialisation, ignore);
}

}  // namespace

Prem::Prem(Services& services) : Forme(services), ui_(std::make_unique<Ui::Prem>()) {
  ui_->setupUi(this);
  ui_->Repertoires->Aller(QDir::homePath());
  connect(ui_->BdatOui, &QRadioButton::toggled, this, &Prem::MontrerSuite);
  connect(ui_->BdatNon, &QRadioButton::toggled, this, &Prem::MontrerSuite);
  const auto relier = [this](const QPushButton* bouton, void (Prem::*effet)()) {
    connect(bouton, &QPushButton::clicked, this, [this, effet] { Garder([this, effet] { (this->*effet)(); }); });
  };
  relier(ui_->BnouvDir, &Prem::CreerRepertoire);
  relier(ui_->BnomDir, &Prem::EnregistrerRepertoire);
  relier(ui_->BnomGen, &Prem::EnregistrerGenerique);
  const auto passer = [this](const char* action) {
    return [this, action] {
      close();
      services_.ouvrirProgramme(QString::fromLatin1(action));
    };
  };
  connect(ui_->Bimport, &QPushButton::clicked, this, passer("mnuImport"));
  connect(ui_->BsaisieDes, &QPushButton::clicked, this, passer("mnuSaisie"));
  RelierQuitter(*ui_->Bfermer);
}

Prem::~Prem() = default;

// What becomes possible, and what is told, with what the user has chosen so far.
void Prem::MontrerSuite() {
  const bool existent = ui_->BdatOui->isChecked();
  ui_->FrRepertoire->setEnabled(existent || ui_->BdatNon->isChecked());
  ui_->FrEtape2->setEnabled(!repertoire_.isEmpty());
  ui_->Bimport->setEnabled(generiqueDonne_ && existent && services_.programmeExiste(QStringLiteral("mnuImport")));
  ui_->BsaisieDes->setEnabled(generiqueDonne_ && !existent && services_.programmeExiste(QStringLiteral("mnuSaisie")));
  if (repertoire_.isEmpty()) return;
  ui_->LabelDir->setText(
      QStringLiteral("Vos données seront désormais dans le répertoire ") + repertoire_ + u'\n' +
      (existent ? QStringLiteral("Vous pouvez passer aux traitement de vos données déjà existantes\n"
                                 "ou plus tard, prendre le menu 'Nouvelles données' puis 'Import'")
                : QStringLiteral("Vous pouvez passer à l'étape suivante de constitution d'un descripteur des données\n"
                                 "ou plus tard, prendre le menu 'Nouvelles données' puis 'Saisie'")));
  // The sentences take more lines than their empty label: the form grows rather than squeeze what is above.
  layout()->activate();
  resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
}

void Prem::CreerRepertoire() {
  const std::string nom = services_.ecran.saisir("Nom du nouveau répertoire"_w, "");
  if (nom.empty()) return;
  QDir parent(ui_->Repertoires->Designe());
  if (!parent.mkpath(VersQt(nom))) {
    services_.ecran.demander(Joindre({"Le répertoire "_w, nom, " ne peut pas être créé"_w}), Boutons::Ok);
    return;
  }
  ui_->Repertoires->Aller(parent.filePath(VersQt(nom)));
}

// The generic in force, if any, becomes that of a directory that has none.
bool Prem::EmporterLeGenerique(const Chemin& initialisation) {
  const Session& session = services_.session;
  if (session.generique.empty() || EstLa(initialisation)) return true;
  try {
    EcrireInitialisation(initialisation.parent_path(), session.generique, session.niveau);
    return true;
  } catch (const Erreur& erreur) {
    services_.ecran.demander(Joindre({"Le répertoire ne peut pas être pris : "_w, TexteErreur(erreur)}), Boutons::Ok);
    return false;
  }
}

void Prem::reject() {
  Forme::reject();
  if (!isVisible()) services_.montrerNouvelleUtilisation(false);
}

void Prem::EnregistrerRepertoire() {
  const QString choisi = ui_->Repertoires->Designe();
  const Chemin initialisation = CheminInitialisation(CheminDepuisQt(choisi));
  const bool nouvelle = !EstLa(initialisation);
  if (!EmporterLeGenerique(initialisation)) return;
  if (!services_.ouvrirInitialisation(initialisation)) {
    if (nouvelle) EffacerFichier(initialisation);
    return;
  }
  repertoire_ = choisi;
  MontrerSuite();
  ui_->TxtGen->setText(VersQt(services_.session.generique));
  ui_->TxtGen->setFocus();
}

void Prem::EnregistrerGenerique() {
  const std::string refus(RefusDuGeneriqueSaisi(NomDepuisUtf8(ui_->TxtGen->text().toStdString())));
  generiqueDonne_ = services_.accepterGenerique(ui_->TxtGen->text());
  if (generiqueDonne_)
    ui_->LabelGen->setText(QStringLiteral("Le générique est ") + VersQt(services_.session.generique));
  else ui_->LabelGen->setText(VersQt(refus));  // none when the user keeps the work that is under way
  MontrerSuite();
  if (!generiqueDonne_) ui_->TxtGen->setFocus();
}

void OuvrirPrem(Services& services) {
  services.montrerNouvelleUtilisation(true);
  Montrer<Prem>(services);
}

}  // namespace quelvar::forms
