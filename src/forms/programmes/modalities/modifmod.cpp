#include "forms/programmes/modalities/modifmod.h"

#include <QFontDatabase>
#include <QShortcut>

#include "core/enquete/listemod.h"
#include "forms/pieces/commande.h"
#include "forms/texte/texte_qt.h"
#include "modalities/edition/modifmod_options.h"
#include "ui_modifmod.h"

namespace quelvar::forms {

ModifMod::ModifMod(Services& services)
    : Forme(services), etat_(modalities::ChargerModifMod(contexte_)), ui_(std::make_unique<Ui::ModifMod>()) {
  ui_->setupUi(this);
  dansLeFichier_ = etat_.textes;
  const auto texte = [this](int ligne) -> std::string& { return etat_.textes[static_cast<std::size_t>(ligne)]; };
  edition_ = new EditionListe(
      *this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
      {[this] { return static_cast<int>(etat_.textes.size()); }, [texte](int ligne) { return VersQt(texte(ligne)); },
       [texte](int ligne) { return VersQt(IntituleDeTexte(texte(ligne))); },
       [this, texte](int ligne, const QString& intitule) {
         modalities::PoserIntitule(texte(ligne), DepuisQt(intitule));
         MontrerStatut(ligne);
         return QString();
       }});
  ui_->ListSuppl->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  connect(ui_->ListSuppl, &QListWidget::itemClicked, this, [this] { Basculer(ui_->ListSuppl->currentRow()); });
  auto* espace = new QShortcut(Qt::Key_Space, ui_->ListSuppl);
  espace->setContext(Qt::WidgetShortcut);
  connect(espace, &QShortcut::activated, this, [this] { Basculer(ui_->ListSuppl->currentRow()); });
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &ModifMod::Enregistrer);
  RelierQuitter(*ui_->BoutQuitter);
  RelierCommande(*ui_->BoutEnreg, modalities::DescriptionModifMod(), contexte_, [this] {
    edition_->Ranger();
    return modalities::OptionsDeModifMod(dansLeFichier_, etat_.textes);
  });
  AuDepart(modalities::AbandonnerEdition);
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
  modalities::BasculerStatut(etat_.textes[static_cast<std::size_t>(ligne)]);
  MontrerStatut(ligne);
  edition_->Montrer(ligne);
}

void ModifMod::MontrerStatut(int ligne) {
  const std::string& texte = etat_.textes[static_cast<std::size_t>(ligne)];
  QListWidgetItem* element = ui_->ListSuppl->item(ligne);
  element->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  element->setCheckState(EstSupplementaire(texte) ? Qt::Checked : Qt::Unchecked);
  element->setText(VersQt(texte));
}

void ModifMod::Enregistrer() {
  if (!edition_->Ranger()) return;
  Fin fin = Fin::Arret;
  services_.Lancer([&](const Contexte&) { fin = modalities::EnregistrerModifMod(contexte_, etat_.textes); });
  if (fin == Fin::Normale) accept();
}

void OuvrirModifMod(Services& services) { Montrer<ModifMod>(services); }

}  // namespace quelvar::forms
