#include "forms/programmes/text/saisiemot.h"

#include "core/programme/alerte.h"
#include "forms/pieces/clavier.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/programmes/text/concord.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "text/decoupage/saisiemot_options.h"
#include "ui_saisiemot.h"

namespace quelvar::forms {

SaisieMot::SaisieMot(Services& services)
    : Forme(services), mots_(text::MotsDuDecoupage(contexte_)), ui_(std::make_unique<Ui::SaisieMot>()) {
  ui_->setupUi(this);
  for (QWidget* fixe : std::initializer_list<QWidget*>{ui_->Verif, ui_->ListMots}) fixe->setFont(PoliceFixe());
  for (int lignes = 1; lignes <= text::kLignesProposees; ++lignes) ui_->CbLignMax->addItem(QString::number(lignes));
  PoserDefauts(*this, text::DescriptionSaisieMot());
  ui_->FrOptSp->setVisible(services.session.niveau >= kNiveauAvance);
  RelierStimulus();
  for (const text::MotCompte& mot : mots_) ui_->ListMots->addItem(VersQt(mot.texte));
  ui_->FrMots->setVisible(!mots_.empty());
  const auto concordance = [this] {
    if (const int ligne = ui_->ListMots->currentRow(); ligne >= 0)
      OuvrirConcord(services_, text::CherchesDesMots({mots_[static_cast<std::size_t>(ligne)].mot}));
  };
  connect(ui_->ListMots, &QListWidget::itemDoubleClicked, this, concordance);
  RelierEntree(*ui_->ListMots, concordance);
  connect(ui_->CbLancer, &QPushButton::clicked, this, &SaisieMot::LancerSaisieMot);
  AjouterVoirLaCommande(*ui_->CbLancer, [this] { return text::CommandeDuDecoupage(contexte_, Options()); });
  RelierQuitter(*ui_->CbAnnul);
  AuDepartDireLArret();
  RelierAide(*ui_->BoutAide, "mnuAImpMot");
  MontrerApercu();
}

SaisieMot::~SaisieMot() = default;

void SaisieMot::MontrerApercu() {
  const text::ApercuDuTexte apercu = text::ApercevoirTexte(contexte_);
  QString texte = VersQt(apercu.texte);
  ui_->Verif->setPlainText(texte.remove('\r'));
  ui_->TextMsg->setText(VersQt(apercu.faute));
  ui_->TextMsg->setVisible(!apercu.faute.empty());
  ui_->CbLancer->setEnabled(apercu.faute.empty());
}

void SaisieMot::RelierStimulus() {
  for (QRadioButton* bouton : {ui_->OpQuestOuv, ui_->OpStimulus, ui_->OpNonNoté, ui_->OpCarac, ui_->OpFinMot})
    connect(bouton, &QRadioButton::toggled, this, &SaisieMot::MontrerStimulus);
  MontrerStimulus();
}

void SaisieMot::MontrerStimulus() {
  ui_->FrStimulus->setVisible(ui_->OpStimulus->isChecked());
  ui_->TbPosStim->setEnabled(ui_->OpCarac->isChecked());
  ui_->FrCarac->setEnabled(ui_->OpCarac->isChecked());
  ui_->FrFinMot->setEnabled(ui_->OpFinMot->isChecked());
}

text::OptionsSaisieMot SaisieMot::Options() const { return OptionsDesControles(*this, text::DescriptionSaisieMot()); }

void SaisieMot::LancerSaisieMot() {
  const text::OptionsSaisieMot options = Options();
  const std::string refus = text::RefusDeDecouper(options);
  if (!refus.empty()) {
    AlerterEnBoite(services_.ecran, refus);
    return;
  }
  const std::optional<Fin> fin = Lancer(text::DescriptionSaisieMot(), options);
  if (!fin) return;
  accept();
  if (fin == Fin::Normale) services_.relireGenerique();
}

void OuvrirSaisieMot(Services& services) {
  if (!FairePlace<SaisieMot>(services)) return;
  try {
    Montrer<SaisieMot>(services);
  } catch (const Erreur& erreur) {
    services.ecran.demander(TexteErreur(erreur), Boutons::Ok);
  }
}

}  // namespace quelvar::forms
