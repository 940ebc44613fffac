#include "forms/programmes/modalities/nomquest.h"

#include <algorithm>

#include "forms/pieces/commande.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "modalities/correction/modifmod.h"
#include "modalities/correction/nomquest_options.h"
#include "ui_nomquest.h"

namespace quelvar::forms {

NomQuest::NomQuest(Services& services)
    : Forme(services), etat_(modalities::ChargerNomQuest(contexte_)), ui_(std::make_unique<Ui::NomQuest>()) {
  ui_->setupUi(this);
  const auto question = [this](int ligne) -> modalities::NomDeQuestion& {
    return etat_.questions[static_cast<std::size_t>(ligne)];
  };
  edition_ =
      new EditionListe(*this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
                       {[this] { return static_cast<int>(etat_.questions.size()); },
                        [question](int ligne) { return VersQt(modalities::TexteDeRecapitulatif(question(ligne))); },
                        [question](int ligne) { return VersQt(question(ligne).intitule); },
                        [question](int ligne, const QString& texte) {
                          return VersQt(modalities::NommerQuestion(question(ligne), DepuisQt(texte)));
                        },
                        static_cast<int>(modalities::kLongueurDeNomMaximum), VersQt(modalities::kNomTropLong)});
  connect(edition_, &EditionListe::Refuse, this, &NomQuest::MontrerMessage);
  connect(ui_->BoutSauve, &QPushButton::clicked, this, &NomQuest::Sauver);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &NomQuest::Enregistrer);
  RelierQuitter(*ui_->BoutQuitter);
  AuDepartDireLArret();
  ouverts_ = etat_.questions;
  RelierCommandeDite(*ui_->BoutEnreg, modalities::DescriptionNomQuest(), contexte_, [this] {
    edition_->Ranger();
    return modalities::OptionsDeNomQuest(ouverts_, etat_.questions);
  });
  MontrerMessage(EnUnTexte(etat_.message));
  for (QPushButton* bouton : {ui_->BoutSuivant, ui_->BoutSauve, ui_->BoutEnreg})
    bouton->setEnabled(etat_.message.empty());
  edition_->Remplir();
}

NomQuest::~NomQuest() = default;

bool NomQuest::ATravail() const {
  return edition_->EnCours() || std::any_of(etat_.questions.begin(), etat_.questions.end(),
                                            [](const modalities::NomDeQuestion& q) { return q.modifie; });
}

void NomQuest::MontrerMessage(const QString& texte) { ui_->TextMsg->setText(texte); }

void NomQuest::Sauver() {
  if (!edition_->Ranger()) return;
  const Sauvegarde sauvegarde = SauverSur(
      services_, contexte_, ".POS", [this](const Contexte& sur) { modalities::SauverNomQuest(sur, etat_.questions); });
  if (sauvegarde.faite)
    for (modalities::NomDeQuestion& question : etat_.questions) question.modifie = false;
  if (const QString dite = TexteDeLaSauvegarde(sauvegarde, modalities::kIntitulesSauvegardes); !dite.isEmpty())
    MontrerMessage(dite);
}

void NomQuest::Enregistrer() {
  if (!edition_->Ranger()) return;
  const auto enregistrer = [this](const Contexte& sur) {
    return modalities::EnregistrerNomQuest(sur, etat_.questions);
  };
  if (LancerEtape(enregistrer) == Fin::Normale) accept();
}

void OuvrirNomQuest(Services& services) { Montrer<NomQuest>(services); }

}  // namespace quelvar::forms
