#include "forms/programmes/modalities/choixposmod.h"

#include <algorithm>

#include "core/texte/nombres.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/defauts.h"
#include "forms/pieces/listequestions.h"
#include "forms/texte/texte_qt.h"
#include "modalities/creation/posmod_options.h"
#include "ui_choixposmod.h"

namespace quelvar::forms {

ChoixPosmod::ChoixPosmod(Services& services, modalities::ModePosmod mode, modalities::ChoixPrepare prepare,
                         Brouillon rapport)
    : Forme(services), mode_(mode), prepare_(std::move(prepare)), ui_(std::make_unique<Ui::ChoixPosmod>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, modalities::DescriptionPosmod());
  ui_->FrmOptions->setVisible(services.session.niveau == 2);
  ui_->FrmIndiv->hide();
  ui_->FrmPos->hide();
  ui_->CaseSup->setVisible(prepare_.ancienMod);
  RelierListes();
  RelierOptions();
  if (mode_ == modalities::ModePosmod::Regr) AdapterALaRegression();
  AlignerBoutons();
  const QString aide =
      mode_ == modalities::ModePosmod::Regr ? QStringLiteral("mnuAPosmodR") : QStringLiteral("mnuAPosmod");
  ui_->BoutAide->setEnabled(services.aide.Existe(aide));
  connect(ui_->BoutAide, &QPushButton::clicked, this, [this, aide] { services_.aide.Ouvrir(aide); });
  connect(ui_->BoutLancer, &QPushButton::clicked, this, &ChoixPosmod::LancerPosmod);
  RelierQuitter(*ui_->BoutQuitter);
  RelierCommande(*ui_->BoutLancer, modalities::DescriptionPosmod(), contexte_, [this] { return Options(); });
  AuDepart([preparation = std::move(rapport)](const Contexte& contexte) { preparation.Montrer(contexte); });
  MontrerListes();
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
  for (QListWidget* liste : {ui_->ListVar1, ui_->ListVar2, ui_->ListVar3}) PreparerListeDeQuestions(*liste);
  const auto relier = [this](QPushButton* bouton, QListWidget* depart, Statut statut) {
    connect(bouton, &QPushButton::clicked, this, [this, depart, statut] { Deplacer(*depart, statut); });
  };
  relier(ui_->BoutActPlus, ui_->ListVar1, Statut::Actif);
  relier(ui_->BoutSupPlus, ui_->ListVar1, Statut::Supplementaire);
  relier(ui_->BoutActMoins, ui_->ListVar2, Statut::Aucun);
  relier(ui_->BoutSupMoins, ui_->ListVar3, Statut::Aucun);
  connect(ui_->ListVar1, &QListWidget::itemDoubleClicked, this, [this] { Deplacer(*ui_->ListVar1, Statut::Actif); });
  for (QListWidget* liste : {ui_->ListVar2, ui_->ListVar3})
    connect(liste, &QListWidget::itemDoubleClicked, this, [this, liste] { Deplacer(*liste, Statut::Aucun); });
  connect(ui_->BoutEffacer, &QPushButton::clicked, this, [this] {
    std::fill(prepare_.choix.statuts.begin(), prepare_.choix.statuts.end(), Statut::Aucun);
    MontrerListes();
  });
}

void ChoixPosmod::RelierOptions() {
  connect(ui_->CaseCodZ, &QCheckBox::toggled, this, &ChoixPosmod::ChangerCodesZero);
  connect(ui_->CaseCodLog, &QCheckBox::toggled, this,
          [this](bool coche) { ui_->FrmIndiv->setVisible(coche && mode_ == modalities::ModePosmod::Afc); });
  connect(ui_->CaseNomIndiv, &QCheckBox::toggled, ui_->FrmPos, &QWidget::setVisible);
}

void ChoixPosmod::Deplacer(const QListWidget& liste, Statut statut) {
  if (PoserStatut(liste, prepare_.choix, statut)) MontrerListes();
}

void ChoixPosmod::MontrerListes() {
  MontrerQuestions(*ui_->ListVar1, prepare_.pos, prepare_.choix, Statut::Aucun);
  MontrerQuestions(*ui_->ListVar2, prepare_.pos, prepare_.choix, Statut::Actif);
  MontrerQuestions(*ui_->ListVar3, prepare_.pos, prepare_.choix, Statut::Supplementaire);
  MontrerNombres();
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
  modalities::OptionsPosmod options;
  options.mode = mode_;
  options.actives = NomsDesQuestions(prepare_.pos, prepare_.choix, Statut::Actif);
  options.supplementaires = NomsDesQuestions(prepare_.pos, prepare_.choix, Statut::Supplementaire);
  options.codesZero = !ui_->CaseCodZ->isChecked();
  options.individus = ui_->CaseCodLog->isChecked();
  options.noms.dansDonnees = ui_->CaseNomIndiv->isChecked();
  // A column beyond any line reads nothing, as one that is no number reads 0.
  const auto colonne = [](const QString& texte) {
    return static_cast<int>(std::clamp(ValeurDe(DepuisQt(texte)), -1.0, 1e6));
  };
  if (!ui_->TextBoxDebut->text().trimmed().isEmpty()) options.noms.debut = colonne(ui_->TextBoxDebut->text());
  options.noms.largeur = colonne(ui_->TextBoxLargeur->text());
  options.verifierCodesMax = !ui_->CaseCodmax->isChecked();
  options.oublierAnciennes = ui_->CaseSup->isChecked();
  return options;
}

void ChoixPosmod::LancerPosmod() {
  const modalities::OptionsPosmod options = Options();
  const std::string_view refus = modalities::RefusDeLancer(
      options.individus, options.noms,
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Actif, options.codesZero),
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Supplementaire, options.codesZero));
  if (!refus.empty()) {
    services_.ecran.biper();
    ui_->TitreNbPos->setText(VersQt(refus));
    return;
  }
  if (!services_.lanceur.PeutLancer()) return;
  constexpr int kLimite = 50;
  services_.session.limiteDepassements = options.verifierCodesMax ? kLimite : 0;
  if (services_.Lancer([&](const Contexte&) { modalities::Posmod(contexte_, options); })) accept();
}

namespace {

void Ouvrir(Services& services, modalities::ModePosmod mode) {
  if (!FairePlace<ChoixPosmod>(services)) return;
  std::optional<modalities::ChoixPrepare> prepare;
  Brouillon rapport(services.ContexteEnCours(), ".PRT");
  services.Lancer([&](const Contexte& contexte) {
    prepare = modalities::PrepPosmod(contexte, mode);
    rapport.Retirer();
  });
  if (prepare) Montrer<ChoixPosmod>(services, mode, std::move(*prepare), std::move(rapport));
}

}  // namespace

void OuvrirPosmod(Services& services) { Ouvrir(services, modalities::ModePosmod::Afc); }
void OuvrirPosmodRegression(Services& services) { Ouvrir(services, modalities::ModePosmod::Regr); }

}  // namespace quelvar::forms
