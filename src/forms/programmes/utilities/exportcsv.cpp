#include "forms/programmes/utilities/exportcsv.h"

#include "forms/pieces/commande.h"
#include "ui_exportcsv.h"
#include "utilities/options.h"

namespace quelvar::forms {

ExportCsv::ExportCsv(Services& services) : Forme(services), ui_(std::make_unique<Ui::ExportCsv>()) {
  ui_->setupUi(this);
  const utilities::OptionsExportCsv defaut;
  ui_->OptTab->setChecked(defaut.tabulation);
  ui_->OptPointVirgule->setChecked(!defaut.tabulation);
  ui_->OptUtf8->setChecked(defaut.utf8);
  ui_->OptWindows->setChecked(!defaut.utf8);
  ui_->OptCodes->setChecked(defaut.codes);
  ui_->OptIntitules->setChecked(!defaut.codes);
  ui_->CheckChoix->setChecked(defaut.choix);
  connect(ui_->Lancer, &QPushButton::clicked, this, &ExportCsv::Exporter);
  RelierCommande(*ui_->Lancer, utilities::DescriptionExportCsv(), contexte_, [this] { return Options(); });
  RelierAide(*ui_->BoutAide, "mnuAUtilitaires");
  RelierQuitter(*ui_->Annuler);
}

ExportCsv::~ExportCsv() = default;

utilities::OptionsExportCsv ExportCsv::Options() const {
  return {ui_->OptTab->isChecked(), ui_->OptUtf8->isChecked(), ui_->OptCodes->isChecked(),
          ui_->CheckChoix->isChecked()};
}

void ExportCsv::Exporter() {
  const utilities::OptionsExportCsv options = Options();
  Fin fin = Fin::Arret;
  services_.Lancer([&](const Contexte&) { fin = utilities::ExporterCsv(contexte_, options); });
  if (fin == Fin::Normale) accept();
}

void OuvrirExportCsv(Services& services) {
  if (services.session.niveau < kNiveauAvance)
    services.Lancer([](const Contexte& contexte) { utilities::ExporterCsv(contexte, {}); });
  else if (FairePlace<ExportCsv>(services)) Montrer<ExportCsv>(services);
}

}  // namespace quelvar::forms
