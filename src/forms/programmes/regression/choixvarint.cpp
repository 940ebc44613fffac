#include "forms/programmes/regression/choixvarint.h"

#include <optional>

#include "forms/images/fenetredessin.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "regression/options.h"
#include "ui_choixvarint.h"

namespace quelvar::forms {

namespace {

void MontrerProfils(Services& services, const Contexte& contexte, std::vector<GroupeDeBarres> profils) {
  SujetDeDessin sujet{"Int", "Profils de variables d'intérêt"_w, "&Question", {}, {}};
  for (const GroupeDeBarres& profil : profils) sujet.pages.push_back(profil.titre);
  sujet.dessiner = [profils = std::move(profils)](std::size_t page) {
    return regression::DessinerProfilsDInteret({profils[page]});
  };
  MontrerDessins(services, contexte, std::move(sujet));
}

}  // namespace

ChoixVarInt::ChoixVarInt(Services& services, FichierPos pos)
    : Forme(services), pos_(std::move(pos)), ui_(std::make_unique<Ui::ChoixVarInt>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, regression::DescriptionVarint());
  choix_.statuts.assign(pos_.questions.size(), Statut::Aucun);
  ui_->FrmOptions->setVisible(services.session.niveau >= kNiveauAvance);
  listes_ = new ListesDeQuestions(
      *this, pos_, choix_,
      ListesDeQuestions::Deux{*ui_->ListVar1, *ui_->ListVar2, *ui_->BoutActPlus, *ui_->BoutActMoins});
  connect(listes_, &ListesDeQuestions::Change, ui_->TextMsg, &QLabel::clear);
  connect(ui_->BoutAll, &QPushButton::clicked, this, [this] { listes_->DonnerATous(Statut::Actif); });
  connect(ui_->BoutEffacer, &QPushButton::clicked, this, [this] { listes_->DonnerATous(Statut::Aucun); });
  connect(ui_->BoutLancer, &QPushButton::clicked, this, &ChoixVarInt::LancerVarint);
  RelierCommande(*ui_->BoutLancer, regression::DescriptionVarint(), contexte_, [this] { return Options(); });
  RelierQuitter(*ui_->BoutQuitter);
  listes_->Montrer();
}

ChoixVarInt::~ChoixVarInt() = default;

regression::OptionsVarint ChoixVarInt::Options() const {
  regression::OptionsVarint options = OptionsDesControles(*this, regression::DescriptionVarint());
  options.questions = listes_->Noms(Statut::Actif);
  return options;
}

void ChoixVarInt::LancerVarint() {
  const std::string refus = regression::RefusDuNombreDeQuestions(choix_.Nombre(Statut::Actif));
  if (!refus.empty()) {
    services_.ecran.biper();
    ui_->TextMsg->setText(VersQt(refus));
    return;
  }
  const regression::OptionsVarint options = Options();
  std::vector<GroupeDeBarres> profils;
  const std::optional<Fin> fin =
      LancerEtape([&](const Contexte& sur) { return regression::Varint(sur, options, profils); });
  if (!fin) return;
  Services& services = services_;
  const Contexte contexte = contexte_;
  accept();
  if (fin == Fin::Normale) MontrerProfils(services, contexte, std::move(profils));
}

void OuvrirVarInt(Services& services) {
  const Contexte contexte = services.ContexteEnCours();
  std::optional<FichierPos> pos;
  try {
    const std::optional<Chemin> chemin = contexte.Chercher(".POS");
    if (chemin && contexte.Chercher(".DAT")) pos = LirePos(*chemin);
  } catch (const Erreur&) {
    // The run below tells what is wrong with the file.
  }
  if (!pos || pos->taille.parenthesesFautives) {
    services.Lancer(regression::DescriptionVarint());
    return;
  }
  if (FairePlace<ChoixVarInt>(services)) Montrer<ChoixVarInt>(services, std::move(*pos));
}

}  // namespace quelvar::forms
