#include "forms/programmes/text/saisiemot.h"

#include <QFontDatabase>
#include <QShortcut>
#include <algorithm>

#include "core/texte/nombres.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/text/concord.h"
#include "forms/texte/texte_qt.h"
#include "text/decoupage/saisiemot_options.h"
#include "ui_saisiemot.h"

namespace quelvar::forms {

namespace {

int Colonne(const QLineEdit& champ) {
  return static_cast<int>(std::clamp(ValeurDe(DepuisQt(champ.text())), 0.0, double{text::kColonneLaPlusHaute}));
}

}  // namespace

SaisieMot::SaisieMot(Services& services)
    : Forme(services), mots_(text::MotsDuDecoupage(contexte_)), ui_(std::make_unique<Ui::SaisieMot>()) {
  ui_->setupUi(this);
  ui_->OpNonNote->setObjectName(QStringLiteral("OpNonNoté"));
  for (QWidget* fixe : std::initializer_list<QWidget*>{ui_->Verif, ui_->ListMots})
    fixe->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  for (int lignes = 1; lignes <= text::kLignesProposees; ++lignes) ui_->CbLignMax->addItem(QString::number(lignes));
  ui_->FrOptSp->setVisible(services.session.niveau == 2);
  RelierStimulus();
  for (const text::MotCompte& mot : mots_) ui_->ListMots->addItem(VersQt(mot.texte));
  ui_->FrMots->setVisible(!mots_.empty());
  const auto concordance = [this] {
    if (const int ligne = ui_->ListMots->currentRow(); ligne >= 0)
      OuvrirConcord(services_, text::CherchesDesMots({mots_[static_cast<std::size_t>(ligne)].mot}));
  };
  connect(ui_->ListMots, &QListWidget::itemDoubleClicked, this, concordance);
  for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* entree = new QShortcut(touche, ui_->ListMots);
    entree->setContext(Qt::WidgetShortcut);
    connect(entree, &QShortcut::activated, this, concordance);
  }
  connect(ui_->CbLancer, &QPushButton::clicked, this, &SaisieMot::LancerSaisieMot);
  AjouterVoirLaCommande(*ui_->CbLancer, [this] { return text::CommandeDuDecoupage(contexte_, Options()); });
  RelierQuitter(*ui_->CbAnnul);
  AuDepart(
      [](const Contexte& contexte) { RendreCompte(contexte, "Arrêt volontaire du programme"_w, {}, kRapportSansNom); });
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
  for (QRadioButton* bouton : {ui_->OpQuestOuv, ui_->OpStimulus, ui_->OpNonNote, ui_->OpCarac, ui_->OpFinMot})
    connect(bouton, &QRadioButton::toggled, this, &SaisieMot::MontrerStimulus);
  MontrerStimulus();
}

void SaisieMot::MontrerStimulus() {
  ui_->FrStimulus->setVisible(ui_->OpStimulus->isChecked());
  ui_->TbPosStim->setEnabled(ui_->OpCarac->isChecked());
  ui_->FrCarac->setEnabled(ui_->OpCarac->isChecked());
  ui_->FrFinMot->setEnabled(ui_->OpFinMot->isChecked());
}

text::ModeStimulus SaisieMot::Mode() const {
  using text::ModeStimulus;
  if (!ui_->OpStimulus->isChecked() || ui_->OpNonNote->isChecked()) return ModeStimulus::Aucun;
  if (ui_->OpCarac->isChecked())
    return ui_->OpCaracFinMotY->isChecked() ? ModeStimulus::CaracteristiqueReportee : ModeStimulus::Caracteristique;
  return ui_->OpStimFinY->isChecked() ? ModeStimulus::FinDeMot : ModeStimulus::FinDeMotSupprimee;
}

text::OptionsSaisieMot SaisieMot::Options() const {
  text::OptionsSaisieMot options;
  options.position = Colonne(*ui_->TbPos);
  options.vide = ui_->OptSupr->isChecked() ? text::ReponseVide::Supprimee : text::ReponseVide::NonReponse;
  options.mode = Mode();
  options.positionStimulus = Colonne(*ui_->TbPosStim);
  options.lignesMax = ui_->CbLignMax->currentIndex() + 1;
  options.auxiliaires = ui_->OpFichAuxY->isChecked();
  options.themes = ui_->ChkThemes->isChecked();
  return options;
}

void SaisieMot::LancerSaisieMot() {
  const text::OptionsSaisieMot options = Options();
  const std::string refus = text::RefusDeDecouper(options);
  if (!refus.empty()) {
    services_.ecran.biper();
    services_.ecran.demander(refus, Boutons::Ok);
    return;
  }
  Services& services = services_;
  Fin fin = Fin::Arret;
  if (!services.Lancer([&](const Contexte&) { fin = text::SaisieMot(contexte_, options); })) return;
  accept();
  if (fin == Fin::Normale) services.relireGenerique();
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
