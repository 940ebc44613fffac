#include "forms/programmes/capture/fimport.h"

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
  ui_->TextAide->setPlainText(VersQt(capture::AideImport(sources, niveau)));
  ui_->FrOptions->setVisible(niveau != 1);
  ui_->Aide->setEnabled(principal.AideExiste(QStringLiteral("mnuAImport")));
  connect(ui_->CheckBRT, &QCheckBox::toggled, ui_->FrNoms, &QWidget::setEnabled);
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
  principal_.Ecran().demander("Cette importation n'est pas encore disponible dans cette version de Quelvar"_w,
                              Boutons::Ok);
}

}  // namespace quelvar::forms
