#include "forms/programmes/text/tabmot.h"

#include <algorithm>

#include "core/texte/nombres.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/defauts.h"
#include "forms/pieces/listequestions.h"
#include "forms/texte/texte_qt.h"
#include "text/tableau/tabmot_options.h"
#include "ui_tabmot.h"

namespace quelvar::forms {

TabMot::TabMot(Services& services, FichierPos pos)
    : Forme(services), pos_(std::move(pos)), ui_(std::make_unique<Ui::TabMot>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, text::DescriptionTabMot());
  for (const Question& question : pos_.questions)
    choix_.statuts.push_back(question.statut == Statut::Actif ? Statut::Actif : Statut::Aucun);
  ui_->TextMsg->hide();
  ui_->TBFreq->setText(QString::number(text::kFrequenceParDefaut));
  for (QListWidget* liste : {ui_->ListVar1, ui_->ListVar2}) PreparerListeDeQuestions(*liste);
  const auto relier = [this](QPushButton* bouton, QListWidget* liste, Statut statut) {
    connect(bouton, &QPushButton::clicked, this, [this, liste, statut] { Deplacer(*liste, statut); });
    connect(liste, &QListWidget::itemDoubleClicked, this, [this, liste, statut] { Deplacer(*liste, statut); });
  };
  relier(ui_->BoutActPlus, ui_->ListVar1, Statut::Actif);
  relier(ui_->BoutActMoins, ui_->ListVar2, Statut::Aucun);
  connect(ui_->CbLancer, &QPushButton::clicked, this, &TabMot::LancerTabMot);
  RelierCommande(*ui_->CbLancer, text::DescriptionTabMot(), contexte_, [this] { return Options(); });
  RelierQuitter(*ui_->CbAnnul);
  AuDepart(
      [](const Contexte& contexte) { RendreCompte(contexte, "Arrêt volontaire du programme"_w, {}, kRapportSansNom); });
  RelierAide(*ui_->BoutAide, "mnuATabMot");
  MontrerListes();
}

TabMot::~TabMot() = default;

void TabMot::Deplacer(const QListWidget& liste, Statut statut) {
  if (PoserStatut(liste, choix_, statut)) MontrerListes();
}

void TabMot::MontrerListes() {
  MontrerQuestions(*ui_->ListVar1, pos_, choix_, Statut::Aucun);
  MontrerQuestions(*ui_->ListVar2, pos_, choix_, Statut::Actif);
}

text::OptionsTabMot TabMot::Options() const {
  text::OptionsTabMot options;
  options.actives = NomsDesQuestions(pos_, choix_, Statut::Actif);
  options.frequenceMin =
      static_cast<int>(std::clamp(ValeurDe(DepuisQt(ui_->TBFreq->text())), 0.0, double{text::kFrequenceLaPlusHaute}));
  options.codesZero = ui_->OpCodZY->isChecked();
  options.limite = services_.session.limiteDepassements;
  return options;
}

void TabMot::LancerTabMot() {
  const text::OptionsTabMot options = Options();
  if (options.actives->empty()) {
    services_.ecran.biper();
    ui_->TextMsg->setText(QStringLiteral("Aucune question n'est choisie comme active"));
    ui_->TextMsg->show();
    return;
  }
  if (services_.Lancer([&](const Contexte&) { text::TabMot(contexte_, options); })) accept();
}

void OuvrirTabMot(Services& services) {
  const Contexte contexte = services.ContexteEnCours();
  const std::optional<Chemin> chemin = contexte.Chercher(".POS");
  const auto lancer = [&services] {
    services.Lancer(
        [&services](const Contexte& lance) { text::TabMot(lance, {.limite = services.session.limiteDepassements}); });
  };
  // Without its files, or at level 1, the program speaks at once.
  if (contexte.niveau == 1 || !chemin || !contexte.Chercher(".DAT")) return lancer();
  if (!FairePlace<TabMot>(services)) return;
  try {
    Montrer<TabMot>(services, LirePos(*chemin));
  } catch (const Erreur&) {  // told by the report
    lancer();
  }
}

}  // namespace quelvar::forms
