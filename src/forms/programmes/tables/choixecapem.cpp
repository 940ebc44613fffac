#include "forms/programmes/tables/choixecapem.h"

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "tables/ecapem_options.h"
#include "ui_choixecapem.h"

namespace quelvar::forms {

ChoixEcapem::ChoixEcapem(Services& services) : Forme(services), ui_(std::make_unique<Ui::ChoixEcapem>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, tables::DescriptionEcapem());
  RelierAide(*ui_->Aide, "mnuAEcapem");
  MontrerEtat();
  for (QCheckBox* boite : findChildren<QCheckBox*>())
    connect(boite, &QCheckBox::toggled, this, &ChoixEcapem::MontrerEtat);
  connect(ui_->Lancer, &QPushButton::clicked, this, &ChoixEcapem::LancerAnalyse);
  RelierQuitter(*ui_->Annuler);
  RelierCommande(*ui_->Lancer, tables::DescriptionEcapem(), contexte_, [this] { return Options(); });
}

ChoixEcapem::~ChoixEcapem() = default;

// What the boxes mean as they stand, and which options they leave open.
void ChoixEcapem::MontrerEtat() {
  ui_->AideCompact->setText(ui_->ChkCompact->isChecked()
                                ? QStringLiteral("Seuls les écarts positifs sont pris en compte")
                                : QStringLiteral("Les écarts positifs et négatifs sont utilisés"));
  ui_->AideRetour->setText(ui_->ChkRetour->isChecked()
                               ? QStringLiteral("Le tableau observé, puis le tableau diagonalisé, sont examinés")
                               : QStringLiteral("Seul le tableau observé est examiné "));
  for (QRadioButton* choix : {ui_->OptCourt, ui_->OptLong}) choix->setEnabled(ui_->ChkIntit->isChecked());
  for (QRadioButton* choix : {ui_->Opt2M, ui_->Opt50, ui_->OptAll}) choix->setEnabled(ui_->ChkPEL->isChecked());
  const bool cliques = ui_->CheckClique->isChecked();
  for (QGroupBox* cadre : {ui_->FrIntit, ui_->FrPEM, ui_->FrPEL}) cadre->setEnabled(!cliques);
  ui_->FrSeuil->setEnabled(!cliques && !ui_->ChkK2->isChecked());
}

tables::OptionsEcapem ChoixEcapem::Options() const { return OptionsDesControles(*this, tables::DescriptionEcapem()); }

void ChoixEcapem::LancerAnalyse() {
  if (!services_.lanceur.PeutLancer()) return;
  if (Lancer(tables::DescriptionEcapem(), Options())) accept();
}

void OuvrirChoixEcapem(Services& services) { Montrer<ChoixEcapem>(services); }

}  // namespace quelvar::forms
