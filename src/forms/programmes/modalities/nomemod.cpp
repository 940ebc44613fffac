#include "forms/programmes/modalities/nomemod.h"

#include <algorithm>

#include "core/enquete/listemod.h"
#include "forms/pieces/commande.h"
#include "forms/qt/texte.h"
#include "forms/services/brouillon.h"
#include "forms/services/sauvegarde.h"
#include "modalities/correction/modifmod.h"
#include "modalities/correction/nomemod_options.h"
#include "modalities/correction/nomquest.h"
#include "ui_nomemod.h"

namespace quelvar::forms {

NomeMod::NomeMod(Services& services, modalities::ChoixPrepare prepare)
    : Forme(services), prepare_(std::move(prepare)), ui_(std::make_unique<Ui::NomeMod>()) {
  ui_->setupUi(this);
  ui_->BoutModif->setVisible(services.session.niveau >= kNiveauAvance);
  RelierChoix();
  RelierEdition();
  RelierQuitter(*ui_->BoutQuitter);
  AuDepartDireLArret();
  listes_->Montrer();
  MontrerNombre();
  MontrerModalites();
}

NomeMod::~NomeMod() = default;

void NomeMod::RelierChoix() {
  listes_ =
      new ListesDeQuestions(*this, prepare_.pos, prepare_.choix,
                            ListesDeQuestions::Deux{*ui_->ListQuest, *ui_->ListVar2, *ui_->BoutPlus, *ui_->BoutMoins});
  connect(listes_, &ListesDeQuestions::Change, this, [this] {
    MontrerNombre();
    ui_->TextMsg->setPlainText(VersQt(modalities::GuideDuChoix()));
  });
  connect(ui_->CaseCodZ, &QCheckBox::toggled, this, &NomeMod::MontrerNombre);
  connect(ui_->BoutLancer, &QPushButton::clicked, this, [this] { Garder([this] { LancerCreation(); }); });
  connect(ui_->BoutModif, &QPushButton::clicked, this, [this] { Garder([this] { OuvrirModification(); }); });
}

void NomeMod::RelierEdition() {
  const auto modalite = [this](int ligne) -> modalities::ModaliteNommee& {
    return modalites_[static_cast<std::size_t>(ligne)];
  };
  edition_ =
      new EditionListe(*this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
                       AccesAuxTextes([this] { return static_cast<int>(modalites_.size()); },
                                      [modalite](int ligne) -> const std::string& { return modalite(ligne).texte; },
                                      [this, modalite](int ligne, const std::string& intitule) {
                                        modalities::NommerModalite(modalite(ligne), intitule);
                                        RetenirIntitule(Rogner(NomDeTexte(modalite(ligne).texte)), intitule);
                                      }));
  connect(ui_->BoutSauve, &QPushButton::clicked, this, &NomeMod::Sauver);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &NomeMod::Enregistrer);
  RelierCommande(*ui_->BoutEnreg, modalities::DescriptionNomeMod(), contexte_, [this] {
    edition_->Ranger();
    return faits_;
  });
}

void NomeMod::RetenirIntitule(std::string_view nom, const std::string& intitule) {
  auto& intitules = faits_.intitules;
  std::erase_if(intitules, [&](const auto& ancien) { return ancien.first == nom; });
  intitules.emplace_back(nom, intitule);
}

modalities::RapportNomeMod NomeMod::Rapport() const {
  return faits_.Cree() ? modalities::RapportNomeMod::Suite : modalities::RapportNomeMod::Nouveau;
}

void NomeMod::MontrerNombre() {
  ui_->TitreNbPos->setText(VersQt(modalities::TexteNombrePrevu(
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Actif, !ui_->CaseCodZ->isChecked()))));
}

void NomeMod::LancerCreation() {
  const modalities::PasseNomeMod passe{listes_->Noms(Statut::Actif), !ui_->CaseCodZ->isChecked()};
  const std::string_view refus = modalities::RefusDeNommer(
      modalities::CompterModalites(prepare_.pos, prepare_.choix, Statut::Actif, passe.codesZero));
  if (!refus.empty()) {
    services_.ecran.biper();
    ui_->TextMsg->setPlainText(VersQt(refus));
    return;
  }
  if (!edition_->Ranger()) return;
  const modalities::RapportNomeMod rapport = Rapport();
  if (LancerEtape([&](const Contexte& sur) { return modalities::CreerModalites(sur, passe, rapport); }) != Fin::Normale)
    return;
  if (faits_.Cree()) faits_.passes.push_back(passe);
  else faits_.passes = {passe};
  const modalities::EtatNomeMod creees = modalities::LireModalitesCreees(contexte_);
  modalities::AjouterModalites(modalites_, creees.modalites);
  MontrerModalites();
  const std::string depassee = modalities::PhraseDeTableDepassee(contexte_);
  QString guide = creees.message.empty() ? VersQt(modalities::GuideDeLaCreation()) : EnUnTexte(creees.message);
  if (!depassee.empty()) guide.prepend(VersQt(depassee) + QStringLiteral("\n\n"));
  ui_->TextMsg->setPlainText(guide);
}

void NomeMod::OuvrirModification() {
  modalities::EtatNomeMod toutes = modalities::LireToutesModalites(contexte_);
  if (!toutes.message.empty()) {
    ui_->TextMsg->setPlainText(EnUnTexte(toutes.message));
    return;
  }
  if (!edition_->Ranger()) return;
  modalities::ReprendreModalites(modalites_, std::move(toutes.modalites));
  MontrerModalites();
  ui_->TextMsg->setPlainText(VersQt(modalities::GuideDeLaModification()));
}

bool NomeMod::ATravail() const {
  return edition_->EnCours() || std::any_of(modalites_.begin(), modalites_.end(),
                                            [](const modalities::ModaliteNommee& m) { return m.modifiee; });
}

void NomeMod::MontrerModalites() {
  edition_->Remplir();
  for (QPushButton* bouton : {ui_->BoutSuivant, ui_->BoutSauve, ui_->BoutEnreg})
    bouton->setEnabled(!modalites_.empty());
}

void NomeMod::Sauver() {
  if (!edition_->Ranger()) return;
  const Sauvegarde sauvegarde = SauverSur(services_, contexte_, ".MOD",
                                          [this](const Contexte& sur) { modalities::SauverNomeMod(sur, modalites_); });
  if (sauvegarde.faite)
    for (modalities::ModaliteNommee& modalite : modalites_) modalite.modifiee = false;
  if (const QString dite = TexteDeLaSauvegarde(sauvegarde, modalities::kIntitulesSauvegardes); !dite.isEmpty())
    ui_->TextMsg->setPlainText(dite);
}

void NomeMod::Enregistrer() {
  if (!edition_->Ranger()) return;
  const modalities::RapportNomeMod rapport = Rapport();
  const auto enregistrer = [&](const Contexte& sur) {
    return modalities::EnregistrerNomeMod(sur, modalites_, rapport);
  };
  if (LancerEtape(enregistrer) == Fin::Normale) accept();
}

void OuvrirNomMod(Services& services) {
  if (!FairePlace<NomeMod>(services)) return;
  auto prepare = Preparer(services, ".PRT", [](const Contexte& contexte) {
    return modalities::PrepPosmod(contexte, modalities::ModePosmod::Modi);
  });
  if (prepare) Montrer<NomeMod>(services, std::move(prepare->donnees));
}

}  // namespace quelvar::forms
