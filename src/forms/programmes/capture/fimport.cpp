#include "forms/programmes/capture/fimport.h"

#include "capture/burt.h"
#include "capture/dbase/import.h"
#include "capture/dbase/tableau.h"
#include "forms/texte/texte_qt.h"
#include "ui_fimport.h"

namespace quelvar::forms {

FImport::FImport(Principal& principal)
    : QDialog(&principal), principal_(principal), ui_(std::make_unique<Ui::FImport>()) {
  ui_->setupUi(this);
  const capture::SourcesPresentes sources = capture::ChercherSources(principal.ContexteEnCours());
  const int niveau = principal.SessionEnCours().niveau;
  ui_->LabelDBF->setText(VersQt(capture::TextePresence(sources.dbf)));
  ui_->LabelDAT->setText(VersQt(capture::TextePresence(sources.dat)));
  ui_->LabelPOS->setText(VersQt(capture::TextePresence(sources.pos)));
  ui_->LabelBRT->setText(VersQt(capture::TextePresence(sources.brt)));
  const QString aide = VersQt(capture::AideImport(sources, niveau));
  ui_->TextAide->setPlainText(aide);
  ui_->FrOptions->setVisible(niveau != 1);
  ui_->Aide->setEnabled(principal.AideExiste(QStringLiteral("mnuAImport")));
  connect(ui_->CheckBRT, &QCheckBox::toggled, this, [this, aide](bool burt) {
    ui_->FrNoms->setEnabled(burt);
    ui_->TextAide->setPlainText(burt ? VersQt(capture::AideImportBurt()) : aide);
  });
  connect(ui_->BoutFichier, &QPushButton::clicked, this, &FImport::ChoisirFichier);
  connect(ui_->Lancer, &QPushButton::clicked, this, &FImport::LancerImport);
  connect(ui_->Aide, &QPushButton::clicked, this, [this] { principal_.OuvrirAide(QStringLiteral("mnuAImport")); });
  connect(ui_->Annuler, &QPushButton::clicked, this, &FImport::close);
}

FImport::~FImport() = default;

void FImport::LancerImport() {
  if (ui_->CheckTrg->isChecked() && ui_->CheckBRT->isChecked()) {
    principal_.Ecran().demander("Vous ne pouvez prendre qu'une seule des options", Boutons::Ok);
    return;
  }
  if (ui_->CheckBRT->isChecked()) {
    const capture::OptionsImportBurt options{
        DepuisQt(ui_->TextFichier->text()),
        ui_->OptNum->isChecked() ? capture::NomsCourts::Automatiques : capture::NomsCourts::Utilisateur};
    if (const std::string_view refus = capture::RefusDImporterBurt(options); !refus.empty()) {
      principal_.Ecran().demander(refus, Boutons::Ok);
      return;
    }
    principal_.Lancer([&](const Contexte& contexte) { capture::ImportBurt(contexte, options); });
  } else if (ui_->CheckTrg->isChecked()) {
    principal_.Lancer([](const Contexte& contexte) { capture::ImportTableau(contexte, {}); });
  } else {
    principal_.Lancer([](const Contexte& contexte) { capture::ImportDbf(contexte, {}); });
  }
  principal_.RelireGenerique();
  principal_.FermerFormes();
}

void FImport::ChoisirFichier() {
  const std::string fichier = principal_.Ecran().choisirFichier("Fichier du tableau de Burt issu de SAS",
                                                                "Fichiers *.txt|*.txt|Tous fichiers *.*|*.*");
  if (!fichier.empty()) ui_->TextFichier->setText(VersQt(fichier));
}

}  // namespace quelvar::forms
