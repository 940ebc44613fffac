#include "forms/programmes/modalities/choixposmod.h"

#include <algorithm>

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "modalities/creation/posmod_options.h"
#include "ui_choixposmod.h"

namespace quelvar::forms {

ChoixPosmod::ChoixPosmod(Services& services, modalities::ModePosmod mode, modalities::ChoixPrepare prepare,
                         Brouillon rapport)
    : Forme(services), mode_(mode), prepare_(std::move(prepare)), ui_(std::make_unique<Ui::ChoixPosmod>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, modalities::DescriptionPosmod());
  ui_->FrmOptions->setVisible(services.session.niveau >= kNiveauAvance);
  ui_->FrmIndiv->hide();
  ui_->FrmPos->hide();
  ui_->CaseSup->setVisible(prepare_.ancienMod);
  RelierListes();
  RelierOptions();
  if (mode_ == modalities::ModePosmod::Regr) AdapterALaRegression();
  AlignerBoutons();
  RelierAide(*ui_->BoutAide, mode_ == modalities::ModePosmod::Regr ? "mnuAPosmodR" : "mnuAPosmod");
  connect(ui_->BoutLancer, &QPushButton::clicked, this, &ChoixPosmod::LancerPosmod);
  RelierQuitter(*ui_->BoutQuitter);
  RelierCommande(*ui_->BoutLancer, modalities::DescriptionPosmod(), contexte_, [this] { return Options(); });
  AuDepart([preparation = std::move(rapport)](const Contexte& contexte) { preparation.Montrer(contexte); });
  listes_->Montrer();
  MontrerNombres();
}

ChoixPosmod::~ChoixPosmod() = default;

void ChoixPosmod::AdapterALaRegression() {
  setWindowTitle(QStringLiteral("Choix des questions pour créer des modalités"));
  ui_->TitreLignes->setText(QStringLiteral("Questions ch&oisies"));
  ui_->BoutActPlus->setText(QStringLiteral("A&joute modalités"));
  ui_->BoutActMoins->setText(QStringLiteral("En&lève modalités"));
  ui_->CaseCodLog->setChecked(true);
  for (QWidget* cache : std::initializer_list<QWidget*>{ui_->CaseCodLog, ui_->FrmSup, ui_->FrmIndiv, ui_->CaseSup})
    cache->hide();
}

// The two lists on the right have one width.
void ChoixPosmod::AlignerBoutons() {
  const int largeur = std::max(ui_->BoutSupPlus->sizeHint().width(), ui_->BoutSupMoins->sizeHint().width());
  for (QPushButton* bouton : {ui_->BoutActPlus, ui_->BoutActMoins, ui_->BoutSupPlus, ui_->BoutSupMoins})
    bouton->setMinimumWidth(largeur);
}

void ChoixPosmod::RelierListes() {
  listes_ = new ListesDeQuestions(
      *this, prepare_.pos, prepare_.choix,
      {{ui_->ListVar1, Statut::Aucun}, {ui_->ListVar2, Statut::Actif}, {ui_->ListVar3, Statut::Supplementaire}});
  listes_->Relier(*ui_->BoutActPlus, *ui_->ListVar1, Statut::Actif);
  listes_->Relier(*ui_->BoutSupPlus, *ui_->ListVar1, Statut::Supplementaire);
  listes_->Relier(*ui_->BoutActMoins, *ui_->ListVar2, Statut::Aucun);
  listes_->Relier(*ui_->BoutSupMoins, *ui_->ListVar3, Statut::Aucun);
  listes_->RelierDoubleClic(*ui_->ListVar1, Statut::Actif);
  for (const QListWidget* liste : {ui_->ListVar2, ui_->ListVar3}) listes_->RelierDoubleClic(*liste, Statut::Aucun);
  connect(ui_->BoutEffacer, &QPushButton::clicked, this, [this] { listes_->DonnerATous(Statut::Aucun); });
  connect(listes_, &ListesDeQuestions::Change, this, &ChoixPosmod::MontrerNombres);
}

void ChoixPosmod::RelierOptions() {
  connect(ui_->CaseCodZ, &QCheckBox::toggled, this, &ChoixPosmod::ChangerCodesZero);
  connect(ui_->CaseCodLog, &QCheckBox::toggled, this,
          [this](bool coche) { ui_->FrmIndiv->setVisible(coche && mode_ == modalities::ModePosmod::Afc); });
  connect(ui_->CaseNomIndiv, &QCheckBox::toggled, ui_->FrmPos, &QWidget::setVisible);
}

void ChoixPosmod::MontrerNombres() {
  const bool codesZero = !ui_->CaseCodZ->isChecked();
  const std::int64_t actives = modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Actif, codesZero);
  const std::int64_t supplementaires =
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Supplementaire, codesZero);
  ui_->TitreNbPos->setText(VersQt(mode_ == modalities::ModePosmod::Regr
                                      ? modalities::TexteNombreUnique(actives)
                                      : modalities::TexteNombres(actives, supplementaires)));
}

void ChoixPosmod::ChangerCodesZero(bool sans) {
  MontrerNombres();
  if (!sans || mode_ != modalities::ModePosmod::Regr) return;
  services_.ecran.biper();
  ui_->TitreNbPos->setText(VersQt(modalities::TexteSansNonReponses(
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Actif, false))));
}

modalities::OptionsPosmod ChoixPosmod::Options() const {
  modalities::OptionsPosmod options = OptionsDesControles(*this, modalities::DescriptionPosmod());
  options.mode = mode_;
  options.actives = listes_->Noms(Statut::Actif);
  options.supplementaires = listes_->Noms(Statut::Supplementaire);
  if (mode_ == modalities::ModePosmod::Regr) options.individus = true;
  return options;
}

void ChoixPosmod::LancerPosmod() {
  const modalities::OptionsPosmod options = Options();
  const std::string refus = modalities::RefusDeLancer(
      options.individus, options.noms,
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Actif, options.codesZero),
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Supplementaire, options.codesZero));
  if (!refus.empty()) {
    services_.ecran.biper();
    ui_->TitreNbPos->setText(VersQt(refus));
    return;
  }
  if (!services_.lanceur.PeutLancer()) return;
  services_.session.limiteDepassements = options.verifierCodesMax ? Session{}.limiteDepassements : 0;
  if (Lancer(modalities::DescriptionPosmod(), options)) accept();
}

namespace {

void Ouvrir(Services& services, modalities::ModePosmod mode) {
  if (!FairePlace<ChoixPosmod>(services)) return;
  auto prepare =
      Preparer(services, ".PRT", [mode](const Contexte& contexte) { return modalities::PrepPosmod(contexte, mode); });
  if (prepare) Montrer<ChoixPosmod>(services, mode, std::move(prepare->donnees), std::move(prepare->rapport));
}

}  // namespace

void OuvrirPosmod(Services& services) { Ouvrir(services, modalities::ModePosmod::Afc); }
void OuvrirPosmodRegression(Services& services) { Ouvrir(services, modalities::ModePosmod::Regr); }

}  // namespace quelvar::forms
