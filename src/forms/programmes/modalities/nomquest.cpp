#include "forms/programmes/modalities/nomquest.h"

#include "forms/pieces/abandon.h"
#include "forms/texte/texte_qt.h"
#include "modalities/edition/modifmod.h"
#include "ui_nomquest.h"

namespace quelvar::forms {

NomQuest::NomQuest(Principal& principal)
    : QDialog(&principal),
      principal_(principal),
      contexte_(principal.ContexteEnCours()),
      etat_(modalities::ChargerNomQuest(contexte_)),
      ui_(std::make_unique<Ui::NomQuest>()) {
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
  connect(edition_, &EditionListe::Refus, this, &NomQuest::MontrerMessage);
  connect(ui_->BoutSauve, &QPushButton::clicked, this, &NomQuest::Sauver);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &NomQuest::Enregistrer);
  new Abandon(*this, *ui_->BoutQuitter, principal, modalities::AbandonnerEdition);
  MontrerMessage(EnUnTexte(etat_.message));
  for (QPushButton* bouton : {ui_->BoutSuivant, ui_->BoutSauve, ui_->BoutEnreg})
    bouton->setEnabled(etat_.message.empty());
  edition_->Remplir();
}

NomQuest::~NomQuest() = default;

void NomQuest::MontrerMessage(const QString& texte) { ui_->TextMsg->setText(texte); }

void NomQuest::Sauver() {
  if (!edition_->Ranger()) return;
  MontrerMessage(Tenter([this] { modalities::SauverNomQuest(contexte_, etat_.questions); },
                        VersQt(modalities::kIntitulesSauvegardes)));
}

void NomQuest::Enregistrer() {
  if (!edition_->Ranger()) return;
  Fin fin = Fin::Arret;
  principal_.Lancer([&](const Contexte&) { fin = modalities::EnregistrerNomQuest(contexte_, etat_.questions); });
  if (fin == Fin::Normale) accept();
}

void OuvrirNomQuest(Principal& principal) { principal.Montrer<NomQuest>(); }

}  // namespace quelvar::forms
