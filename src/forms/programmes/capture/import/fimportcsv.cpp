#include "forms/programmes/capture/import/fimportcsv.h"

#include "capture/apercu/options.h"
#include "capture/import_options.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/programmes/capture/import/fimport.h"
#include "forms/programmes/capture/import/ouverture.h"
#include "forms/programmes/capture/import/source.h"
#include "forms/qt/texte.h"
#include "ui_fimportcsv.h"

namespace quelvar::forms {

FImportCSV::FImportCSV(Services& services)
    : Forme(services),
      sources_(capture::ChercherSources(services.ContexteEnCours())),
      ui_(std::make_unique<Ui::FImportCSV>()) {
  ui_->setupUi(this);
  ui_->LabelCSV->setText(VersQt(capture::TextePresence(sources_.csv)));
  ui_->LabelTXT->setText(VersQt(capture::TextePresence(sources_.txt)));
  ui_->LabelDAT->setText(VersQt(capture::TextePresence(sources_.dat)));
  ui_->LabelPOS->setText(VersQt(capture::TextePresence(sources_.pos)));
  ui_->Lancer->setEnabled(sources_.DeTableur());
  ui_->BoutApercu->setEnabled(sources_.DeTableur());
  RelierAide(*ui_->Aide, "mnuAImport");
  MontrerAide();
  connect(ui_->CheckTrg, &QCheckBox::toggled, this, &FImportCSV::MontrerAide);
  connect(ui_->Lancer, &QPushButton::clicked, this, &FImportCSV::LancerImport);
  connect(ui_->BoutApercu, &QPushButton::clicked, this, [this] {
    accept();
    ImporterSourceDuGenerique(services_, true);
  });
  connect(ui_->BoutFichier, &QPushButton::clicked, this, [this] {
    accept();
    OuvrirSourceImport(services_);
  });
  RelierQuitter(*ui_->Annuler);
  AjouterVoirLaCommande(*ui_->Lancer, [this] { return Commande(); });
}

FImportCSV::~FImportCSV() = default;

capture::OptionsImportCsv FImportCSV::Options() const {
  return OptionsDesControles(*this, capture::DescriptionImportCsv());
}

// As LancerImport does.
std::string FImportCSV::Commande() const {
  if (ui_->CheckTrg->isChecked())
    return CommandeEquivalente(capture::DescriptionImportCsv(), contexte_.generique, contexte_.niveau, Options());
  return Joindre({CommandeEquivalente(capture::DescriptionImport(), contexte_.generique, contexte_.niveau, {}),
                  "  # un aperçu qui s'ouvre a la sienne, avec ses choix"_w});
}

void FImportCSV::MontrerAide() {
  ui_->TextAide->setPlainText(VersQt(capture::AideImportCsv(sources_, ui_->CheckTrg->isChecked())));
}

// A source of codes is imported at once; any other is looked at first. Without titles there is nothing to choose.
void FImportCSV::LancerImport() {
  if (!services_.formes.LaisserLeTravail()) return;  // on the files that the import replaces
  if (!ui_->CheckTrg->isChecked()) {
    accept();
    ImporterSourceDuGenerique(services_, false);
    return;
  }
  if (!Lancer(capture::DescriptionImportCsv(), Options())) return;
  services_.relireGenerique();
  accept();
}

void OuvrirImport(Services& services) {
  const capture::SourcesPresentes sources = capture::ChercherSources(services.ContexteEnCours());
  if (sources.DeTableur()) Montrer<FImportCSV>(services);
  else if (sources.dbf || sources.dat) Montrer<FImport>(services);
  else OuvrirSourceImport(services);
}

}  // namespace quelvar::forms
