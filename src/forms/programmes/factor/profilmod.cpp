#include "forms/programmes/factor/profilmod.h"

#include "core/enquete/listemod.h"
#include "factor/profil/choix.h"
#include "factor/profil/dessin.h"
#include "factor/profil/profilmod_options.h"
#include "forms/images/fenetredessin.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "ui_profilmod.h"

namespace quelvar::forms {

ProfilMod::ProfilMod(Services& services)
    : Forme(services),
      etat_(factor::ChargerProfil(contexte_)),
      initiaux_(etat_.textes),
      ui_(std::make_unique<Ui::ProfilMod>()) {
  ui_->setupUi(this);
  const auto texte = [this](int ligne) -> std::string& { return etat_.textes[static_cast<std::size_t>(ligne)]; };
  edition_ = new EditionListe(*this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
                              AccesAuxTextes([this] { return static_cast<int>(etat_.textes.size()); }, texte,
                                             [this, texte](int ligne, const std::string& intitule) {
                                               PoserIntitule(texte(ligne), intitule);
                                               ui_->ListSuppl->item(ligne)->setText(VersQt(texte(ligne)));
                                             }));
  ui_->ListSuppl->setFont(PoliceFixe());
  connect(ui_->ListSuppl, &QListWidget::itemSelectionChanged, this, &ProfilMod::MontrerChoix);
  connect(ui_->Recherche, &QLineEdit::textChanged, this, &ProfilMod::Filtrer);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &ProfilMod::Enregistrer);
  RelierAide(*ui_->BoutAide, "mnuAProfil");
  RelierQuitter(*ui_->BoutQuitter);
  AuDepart(factor::AbandonnerProfil);
  RelierCommande(*ui_->BoutEnreg, factor::DescriptionProfilMod(), contexte_, [this] {
    edition_->Ranger();  // the label that is being typed
    return Options();
  });
  Remplir();
}

ProfilMod::~ProfilMod() = default;

void ProfilMod::Remplir() {
  std::vector<std::string> message = etat_.message;
  for (const std::string& phrase : {etat_.cause, etat_.remarque})
    if (!phrase.empty()) message.push_back(phrase);
  ui_->TextMsg->setText(EnUnTexte(message));
  for (QPushButton* bouton : {ui_->BoutEnreg, ui_->BoutSuivant}) bouton->setEnabled(etat_.message.empty());
  for (const std::string& texte : etat_.textes) ui_->ListSuppl->addItem(VersQt(texte));
  Filtrer({});
  edition_->Remplir();
}

// The space bar takes the first of those that are left.
void ProfilMod::Filtrer(const QString& texte) {
  QListWidget& liste = *ui_->ListSuppl;
  QListWidgetItem* premiere = nullptr;
  for (int ligne = 0; ligne < liste.count(); ++ligne) {
    QListWidgetItem& modalite = *liste.item(ligne);
    modalite.setHidden(!modalite.text().contains(texte, Qt::CaseInsensitive));
    if (premiere == nullptr && !modalite.isHidden()) premiere = &modalite;
  }
  if (premiere != nullptr) liste.setCurrentItem(premiere, QItemSelectionModel::NoUpdate);
}

std::vector<std::string> ProfilMod::Choisies() const {
  std::vector<std::string> noms;
  for (int ligne = 0; ligne < ui_->ListSuppl->count(); ++ligne)
    if (ui_->ListSuppl->item(ligne)->isSelected())
      noms.emplace_back(NomDeTexte(etat_.textes[static_cast<std::size_t>(ligne)]));
  return noms;
}

void ProfilMod::MontrerChoix() {
  QStringList noms;
  for (const std::string& nom : Choisies()) noms << VersQt(nom);
  ui_->ChoixMod->setText(noms.join(u' '));
}

factor::OptionsProfil ProfilMod::Options() const {
  factor::OptionsProfil options = OptionsDesControles(*this, factor::DescriptionProfilMod());
  if (const std::vector<std::string> noms = Choisies(); !noms.empty()) options.modalites = noms;
  for (std::size_t i = 0; i < etat_.textes.size(); ++i)
    if (etat_.textes[i] != initiaux_[i])
      options.intitules.emplace_back(NomDeTexte(etat_.textes[i]), IntituleDeTexte(etat_.textes[i]));
  return options;
}

void ProfilMod::Enregistrer() {
  if (!edition_->Ranger()) return;
  const std::vector<std::string> noms = Choisies();
  if (const std::string refus = factor::RefusDuChoix(noms); !refus.empty()) {
    ui_->TextMsg->setText(VersQt(refus));
    services_.ecran.biper();
    return;
  }
  std::vector<factor::ProfilDeModalite> profils;
  const factor::OptionsProfil options = OptionsDesControles(*this, factor::DescriptionProfilMod());
  const std::optional<Fin> fin = LancerEtape(
      [&](const Contexte& sur) { return factor::EnregistrerEtProfiler(sur, etat_.textes, noms, options, profils); });
  if (fin != Fin::Normale) return;
  Services& services = services_;
  const Contexte contexte = contexte_;
  accept();
  SujetDeDessin sujet{"Prf", "Profil de la modalité"_w, "&Modalité"_w, {}, {}};
  for (const factor::ProfilDeModalite& profil : profils)
    sujet.pages.push_back(Joindre({profil.nom, " ", profil.intitule}));
  sujet.dessiner = [profils = std::move(profils)](std::size_t page) {
    return factor::DessinerProfils({&profils[page], 1});
  };
  MontrerDessins(services, contexte, std::move(sujet));
}

void OuvrirProfilMod(Services& services) {
  if (FairePlace<ProfilMod>(services)) Montrer<ProfilMod>(services);
}

}  // namespace quelvar::forms
