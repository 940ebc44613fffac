#include "forms/programmes/regression/choixvarint.h"

#include <algorithm>
#include <optional>

#include "forms/images/fenetredessin.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/defauts.h"
#include "forms/pieces/listequestions.h"
#include "forms/texte/texte_qt.h"
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
  ui_->FrmOptions->setVisible(services.session.niveau == 2);
  for (QListWidget* liste : {ui_->ListVar1, ui_->ListVar2}) PreparerListeDeQuestions(*liste);
  connect(ui_->BoutActPlus, &QPushButton::clicked, this, [this] { Deplacer(*ui_->ListVar1, Statut::Actif); });
  connect(ui_->BoutActMoins, &QPushButton::clicked, this, [this] { Deplacer(*ui_->ListVar2, Statut::Aucun); });
  connect(ui_->ListVar1, &QListWidget::itemDoubleClicked, this, [this] { Deplacer(*ui_->ListVar1, Statut::Actif); });
  connect(ui_->ListVar2, &QListWidget::itemDoubleClicked, this, [this] { Deplacer(*ui_->ListVar2, Statut::Aucun); });
  connect(ui_->BoutAll, &QPushButton::clicked, this, [this] { DeplacerTout(Statut::Actif); });
  connect(ui_->BoutEffacer, &QPushButton::clicked, this, [this] { DeplacerTout(Statut::Aucun); });
  connect(ui_->BoutLancer, &QPushButton::clicked, this, &ChoixVarInt::LancerVarint);
  RelierCommande(*ui_->BoutLancer, regression::DescriptionVarint(), contexte_, [this] { return Options(); });
  RelierQuitter(*ui_->BoutQuitter);
  MontrerListes();
}

ChoixVarInt::~ChoixVarInt() = default;

regression::OptionsVarint ChoixVarInt::Options() const {
  regression::OptionsVarint options;
  options.questions = NomsDesQuestions(pos_, choix_, Statut::Actif);
  if (ui_->Opt2->isChecked()) options.edition = regression::EditionVarint::Longue;
  return options;
}

void ChoixVarInt::Deplacer(const QListWidget& liste, Statut statut) {
  if (PoserStatut(liste, choix_, statut)) MontrerListes();
}

void ChoixVarInt::DeplacerTout(Statut statut) {
  std::fill(choix_.statuts.begin(), choix_.statuts.end(), statut);
  MontrerListes();
}

void ChoixVarInt::MontrerListes() {
  MontrerQuestions(*ui_->ListVar1, pos_, choix_, Statut::Aucun);
  MontrerQuestions(*ui_->ListVar2, pos_, choix_, Statut::Actif);
  ui_->TextMsg->clear();
}

void ChoixVarInt::LancerVarint() {
  const std::size_t choisies = choix_.Nombre(Statut::Actif);
  if (choisies == 0 || choisies > regression::kQuestionsDInteretMax) {
    services_.ecran.biper();
    ui_->TextMsg->setText(
        VersQt(choisies == 0 ? "Pas de questions définies"_w : "Trop de questions définies (N>1000)"_w));
    return;
  }
  const regression::OptionsVarint options = Options();
  std::vector<GroupeDeBarres> profils;
  Fin fin = Fin::Arret;
  if (!services_.Lancer([&](const Contexte&) { fin = regression::Varint(contexte_, options, profils); })) return;
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
    services.Lancer([](const Contexte& c) { regression::Varint(c, {}); });
    return;
  }
  if (FairePlace<ChoixVarInt>(services)) Montrer<ChoixVarInt>(services, std::move(*pos));
}

}  // namespace quelvar::forms
