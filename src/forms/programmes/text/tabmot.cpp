#include "forms/programmes/text/tabmot.h"

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
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
  listes_ = new ListesDeQuestions(
      *this, pos_, choix_,
      ListesDeQuestions::Deux{*ui_->ListVar1, *ui_->ListVar2, *ui_->BoutActPlus, *ui_->BoutActMoins});
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
    services.Lancer(text::DescriptionTabMot(), text::OptionsTabMot{.limite = services.session.limiteDepassements});
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
