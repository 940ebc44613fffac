#include "forms/programmes/modalities/modifmod.h"

#include "core/enquete/listemod.h"
#include "forms/pieces/clavier.h"
#include "forms/pieces/commande.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "modalities/correction/modifmod_options.h"
#include "ui_modifmod.h"

namespace quelvar::forms {

ModifMod::ModifMod(Services& services)
    : Forme(services), etat_(OuvrirListe(contexte_)), ui_(std::make_unique<Ui::ModifMod>()) {
  ui_->setupUi(this);
  dansLeFichier_ = etat_.textes;
  edition_ = new EditionListe(*this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
                              AccesAuxTextes([this] { return static_cast<int>(etat_.textes.size()); },
                                             [this](int ligne) -> const std::string& { return Texte(ligne); },
                                             [this](int ligne, const std::string& intitule) {
                                               PoserIntitule(Texte(ligne), intitule);
                                               MontrerStatut(ligne);
                                             }));
  ui_->ListSuppl->setFont(PoliceFixe());
  const auto basculer = [this] { Basculer(ui_->ListSuppl->currentRow()); };
  connect(ui_->ListSuppl, &QListWidget::itemClicked, this, basculer);
  RelierTouches(*ui_->ListSuppl, {Qt::Key_Space}, basculer);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &ModifMod::Enregistrer);
  RelierQuitter(*ui_->BoutQuitter);
  RelierCommandeDite(*ui_->BoutEnreg, modalities::DescriptionModifMod(), contexte_, [this] {
    edition_->Ranger();
    return modalities::OptionsDeModifMod(dansLeFichier_, etat_.textes);
  });
  AuDepartDireLArret();
  RelierAide(*ui_->BoutAide, "mnuAModmod");
  Remplir();
}

ModifMod::~ModifMod() = default;

bool ModifMod::ATravail() const { return edition_->EnCours() || etat_.textes != dansLeFichier_; }

void ModifMod::Remplir() {
  ui_->TextMsg->setText(EnUnTexte(etat_.message));
  ui_->TextMsg->setVisible(!etat_.message.empty());
  for (QPushButton* bouton : {ui_->BoutEnreg, ui_->BoutSuivant}) bouton->setEnabled(etat_.message.empty());
  for (int ligne = 0; ligne < static_cast<int>(etat_.textes.size()); ++ligne) {
    ui_->ListSuppl->addItem(QString());
    MontrerStatut(ligne);
  }
  edition_->Remplir();
}

void ModifMod::Basculer(int ligne) {
  if (ligne < 0) return;
  modalities::BasculerStatut(Texte(ligne));
  MontrerStatut(ligne);
  edition_->Montrer(ligne);
}

void ModifMod::MontrerStatut(int ligne) {
  const std::string& texte = Texte(ligne);
  QListWidgetItem* element = ui_->ListSuppl->item(ligne);
  element->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  element->setCheckState(EstSupplementaire(texte) ? Qt::Checked : Qt::Unchecked);
  element->setText(VersQt(texte));
}

void ModifMod::Enregistrer() {
  if (!edition_->Ranger()) return;
  const auto enregistrer = [this](const Contexte& sur) { return modalities::EnregistrerModifMod(sur, etat_.textes); };
  if (LancerEtape(enregistrer) == Fin::Normale) accept();
}

void OuvrirModifMod(Services& services) { Montrer<ModifMod>(services); }

}  // namespace quelvar::forms
