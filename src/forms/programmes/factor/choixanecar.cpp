#include "forms/programmes/factor/choixanecar.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "factor/analyse/anecar_options.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "ui_choixanecar.h"

namespace quelvar::forms {

namespace {

int FacteursDe(const QLineEdit& champ) {
  return static_cast<int>(ArrondirPair(NombreDuChamp(champ, factor::DescriptionAnecar().De("facteurs"))));
}

}  // namespace

ChoixAnecar::ChoixAnecar(Services& services, Brouillon rapport)
    : Forme(services), ui_(std::make_unique<Ui::ChoixAnecar>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, factor::DescriptionAnecar());
  siTrie_ = new frmSiTrié(*ui_->FrEdition, *ui_->CaseLignes2);
  ui_->DispositionEdition->addWidget(siTrie_);
  RelierEditions();
  RelierDetails();
  QSizePolicy place = ui_->LibelleMinimum->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  ui_->LibelleMinimum->setSizePolicy(place);
  ui_->LibelleMinimum->hide();
  connect(ui_->TextBoxNbFact, &QLineEdit::textChanged, this,
          [this] { ui_->LibelleMinimum->setVisible(FacteursDe(*ui_->TextBoxNbFact) < factor::kFacteursAuMoins); });
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &ChoixAnecar::LancerAnalyse);
  RelierAide(*ui_->BoutAide, "mnuAAnecar");
  RelierQuitter(*ui_->BoutAnnul);
  RelierCommande(*ui_->BoutEnreg, factor::DescriptionAnecar(), contexte_, [this] { return Options(); });
  AuDepart([prepare = std::move(rapport)](const Contexte& sur) { prepare.Montrer(sur); });
  MontrerEdition();
}

ChoixAnecar::~ChoixAnecar() = default;

void ChoixAnecar::RelierEditions() {
  for (QRadioButton* edition : {ui_->optCompact, ui_->optTrié, ui_->optDetails})
    connect(edition, &QRadioButton::toggled, this, [this](bool choisie) {
      if (choisie) MontrerEdition();
    });
  connect(ui_->TriEdit, &QCheckBox::toggled, this, &ChoixAnecar::MontrerSeuils);
}

void ChoixAnecar::RelierDetails() {
  connect(ui_->ChkCAH, &QCheckBox::toggled, ui_->FrWard, &QWidget::setVisible);
  connect(ui_->ChkCAH, &QCheckBox::clicked, this,
          [this] { ui_->TextBoxNbFact->setText(QString::number(factor::kFacteursAClasser)); });
}

// The controls of the chosen edition; those of the extended one go back to their defaults when they are hidden, so that
// nothing that is not seen takes part in the run.
void ChoixAnecar::MontrerEdition() {
  const bool details = ui_->optDetails->isChecked();
  ui_->FrDetails->setVisible(details);
  if (!details) {
    PoserDefauts(*ui_->FrDetails, factor::DescriptionAnecar());
    ui_->ChkCAH->setChecked(false);  // it only opens the choice of a classification
    ui_->TextBoxNbFact->setText(QString::number(factor::kFacteursParDefaut));
  }
  MontrerSeuils();
}

// The thresholds of the sorted lists, and the box of the rows that goes with them.
void ChoixAnecar::MontrerSeuils() {
  ui_->FrWard->setVisible(ui_->ChkCAH->isChecked());
  const bool trieEtendue = ui_->TriEdit->isChecked();
  ui_->CaseLignes2->setVisible(trieEtendue);
  if (ui_->optTrié->isChecked() || trieEtendue) siTrie_->Ouvrir(!trieEtendue);
  else siTrie_->hide();
}

// The number of factors is rounded, and the thresholds are words or numbers as they are typed.
factor::OptionsAnecar ChoixAnecar::Options() const {
  factor::OptionsAnecar options = OptionsDesControles(*this, factor::DescriptionAnecar());
  options.facteurs = std::max(factor::kFacteursAuMoins, FacteursDe(*ui_->TextBoxNbFact));
  if (siTrie_->isVisibleTo(this)) {
    options.seuilLignes = siTrie_->SeuilLignes();
    options.seuilColonnes = siTrie_->SeuilColonnes();
  }
  return options;
}

void ChoixAnecar::LancerAnalyse() {
  if (Lancer(factor::DescriptionAnecar(), Options())) accept();
}

void OuvrirAnecar(Services& services) {
  if (!FairePlace<ChoixAnecar>(services)) return;
  if (services.session.niveau < kNiveauAvance) {
    services.Lancer(factor::DescriptionAnecar());
    return;
  }
  auto prepare = Preparer(services, ".ANA", factor::PrepAnecar);
  if (prepare) Montrer<ChoixAnecar>(services, std::move(prepare->rapport));
}

}  // namespace quelvar::forms
