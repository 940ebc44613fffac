#include "forms/programmes/capture/fimportcsv.h"

#include "capture/import_csv.h"
#include "forms/programmes/capture/fimport.h"
#include "forms/texte/texte_qt.h"
#include "ui_fimportcsv.h"

namespace quelvar::forms {

FImportCSV::FImportCSV(Principal& principal)
    : QDialog(&principal),
      principal_(principal),
      sources_(capture::ChercherSources(principal.ContexteEnCours())),
      ui_(std::make_unique<Ui::FImportCSV>()) {
  ui_->setupUi(this);
  ui_->LabelCSV->setText(VersQt(capture::TextePresence(sources_.csv)));
  ui_->LabelTXT->setText(VersQt(capture::TextePresence(sources_.txt)));
  ui_->LabelDAT->setText(VersQt(capture::TextePresence(sources_.dat)));
  ui_->LabelPOS->setText(VersQt(capture::TextePresence(sources_.pos)));
  ui_->Lancer->setEnabled(sources_.DeTableur());
  ui_->Aide->setEnabled(principal.AideExiste(QStringLiteral("mnuAImport")));
  MontrerAide();
  connect(ui_->CheckTrg, &QCheckBox::toggled, this, &FImportCSV::MontrerAide);
  connect(ui_->Lancer, &QPushButton::clicked, this, &FImportCSV::LancerImport);
  connect(ui_->Aide, &QPushButton::clicked, this, [this] { principal_.OuvrirAide(QStringLiteral("mnuAImport")); });
  connect(ui_->Annuler, &QPushButton::clicked, this, &FImportCSV::close);
}

FImportCSV::~FImportCSV() = default;

void FImportCSV::MontrerAide() {
  ui_->TextAide->setPlainText(VersQt(capture::AideImportCsv(sources_, ui_->CheckTrg->isChecked())));
}

void FImportCSV::LancerImport() {
  capture::OptionsImportCsv options;
  options.sansIntitules = ui_->CheckTrg->isChecked();
  principal_.Lancer([&](const Contexte& contexte) { capture::ImportCsv(contexte, options); });
  principal_.RelireGenerique();
  principal_.FermerFormes();
}

void OuvrirImport(Principal& principal) {
  if (capture::ChercherSources(principal.ContexteEnCours()).DeTableur()) principal.Montrer<FImportCSV>();
  else principal.Montrer<FImport>();
}

}  // namespace quelvar::forms
