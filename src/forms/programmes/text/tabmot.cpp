#include "forms/programmes/text/tabmot.h"

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
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
  listes_ =
      new ListesDeQuestions(*this, pos_, choix_, {{ui_->ListVar1, Statut::Aucun}, {ui_->ListVar2, Statut::Actif}});
  listes_->Relier(*ui_->BoutActPlus, *ui_->ListVar1, Statut::Actif);
  listes_->Relier(*ui_->BoutActMoins, *ui_->ListVar2, Statut::Aucun);
  listes_->RelierDoubleClic(*ui_->ListVar1, Statut::Actif);
  listes_->RelierDoubleClic(*ui_->ListVar2, Statut::Aucun);
  connect(ui_->CbLancer, &QPushButton::clicked, this, &TabMot::LancerTabMot);
  RelierCommande(*ui_->CbLancer, text::DescriptionTabMot(), contexte_, [this] { return Options(); });
  RelierQuitter(*ui_->CbAnnul);
  AuDepartDireLArret();
  RelierAide(*ui_->BoutAide, "mnuATabMot");
  listes_->Montrer();
}

TabMot::~TabMot() = default;

text::OptionsTabMot TabMot::Options() const {
  text::OptionsTabMot options = OptionsDesControles(*this, text::DescriptionTabMot());
  options.actives = listes_->Noms(Statut::Actif);
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
  if (Lancer(text::DescriptionTabMot(), options)) accept();
}

void OuvrirTabMot(Services& services) {
  const Contexte contexte = services.ContexteEnCours();
  const std::optional<Chemin> chemin = contexte.Chercher(".POS");
  const auto lancer = [&services] {
    services.Lancer(
        [&services](const Contexte& lance) { text::TabMot(lance, {.limite = services.session.limiteDepassements}); });
  };
  // Without its files, or at level 1, the program speaks at once.
  if (contexte.niveau < kNiveauAvance || !chemin || !contexte.Chercher(".DAT")) return lancer();
  if (!FairePlace<TabMot>(services)) return;
  try {
    Montrer<TabMot>(services, LirePos(*chemin));
  } catch (const Erreur&) {  // told by the report
    lancer();
  }
}

}  // namespace quelvar::forms
