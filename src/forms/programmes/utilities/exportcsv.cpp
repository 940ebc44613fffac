#include "forms/programmes/utilities/exportcsv.h"

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "ui_exportcsv.h"
#include "utilities/options.h"

namespace quelvar::forms {

ExportCsv::ExportCsv(Services& services) : Forme(services), ui_(std::make_unique<Ui::ExportCsv>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, utilities::DescriptionExportCsv());
  connect(ui_->Lancer, &QPushButton::clicked, this, &ExportCsv::Exporter);
  RelierCommande(*ui_->Lancer, utilities::DescriptionExportCsv(), contexte_, [this] { return Options(); });
  RelierAide(*ui_->BoutAide, "mnuAUtilitaires");
  RelierQuitter(*ui_->Annuler);
}

ExportCsv::~ExportCsv() = default;

utilities::OptionsExportCsv ExportCsv::Options() const {
  return OptionsDesControles(*this, utilities::DescriptionExportCsv());
}

void ExportCsv::Exporter() {
  if (Lancer(utilities::DescriptionExportCsv(), Options()) == Fin::Normale) accept();
}

void OuvrirExportCsv(Services& services) {
  if (services.session.niveau < kNiveauAvance) services.Lancer(utilities::DescriptionExportCsv());
  else if (FairePlace<ExportCsv>(services)) Montrer<ExportCsv>(services);
}

}  // namespace quelvar::forms
