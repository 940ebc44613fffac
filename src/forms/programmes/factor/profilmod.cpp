#include "forms/programmes/factor/profilmod.h"

#include <QFontDatabase>

#include "core/enquete/listemod.h"
#include "factor/profil/choix.h"
#include "factor/profil/dessin.h"
#include "forms/images/rendudessin.h"
#include "forms/images/sortiesdessin.h"
#include "forms/texte/texte_qt.h"
#include "modalities/edition/modifmod.h"
#include "ui_imageprofil.h"
#include "ui_profilmod.h"

namespace quelvar::forms {

ProfilMod::ProfilMod(Services& services)
    : Forme(services), etat_(factor::ChargerProfil(contexte_)), ui_(std::make_unique<Ui::ProfilMod>()) {
  ui_->setupUi(this);
  const auto texte = [this](int ligne) -> std::string& { return etat_.textes[static_cast<std::size_t>(ligne)]; };
  edition_ = new EditionListe(
      *this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
      {[this] { return static_cast<int>(etat_.textes.size()); }, [texte](int ligne) { return VersQt(texte(ligne)); },
       [texte](int ligne) { return VersQt(IntituleDeTexte(texte(ligne))); },
       [this, texte](int ligne, const QString& intitule) {
         modalities::PoserIntitule(texte(ligne), DepuisQt(intitule));
         ui_->ListSuppl->item(ligne)->setText(VersQt(texte(ligne)));
         return QString();
       }});
  ui_->ListSuppl->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  connect(ui_->ListSuppl, &QListWidget::itemSelectionChanged, this, &ProfilMod::MontrerChoix);
  connect(ui_->Recherche, &QLineEdit::textChanged, this, &ProfilMod::Filtrer);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &ProfilMod::Enregistrer);
  RelierAide(*ui_->BoutAide, "mnuAProfil");
  RelierQuitter(*ui_->BoutQuitter);
  AuDepart(factor::AbandonnerProfil);
  Remplir();
}

ProfilMod::~ProfilMod() = default;

void ProfilMod::Remplir() {
  ui_->TextMsg->setText(EnUnTexte(etat_.message));
  for (QPushButton* bouton : {ui_->BoutEnreg, ui_->BoutSuivant}) bouton->setEnabled(etat_.message.empty());
  for (const std::string& texte : etat_.textes) ui_->ListSuppl->addItem(VersQt(texte));
  edition_->Remplir();
}

void ProfilMod::Filtrer(const QString& texte) {
  for (int ligne = 0; ligne < ui_->ListSuppl->count(); ++ligne)
    ui_->ListSuppl->item(ligne)->setHidden(!ui_->ListSuppl->item(ligne)->text().contains(texte, Qt::CaseInsensitive));
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

void ProfilMod::Enregistrer() {
  if (!edition_->Ranger()) return;
  const std::vector<std::string> noms = Choisies();
  if (const std::string refus = factor::RefusDuChoix(noms); !refus.empty()) {
    ui_->TextMsg->setText(VersQt(refus));
    services_.ecran.biper();
    return;
  }
  std::vector<factor::ProfilDeModalite> profils;
  factor::OptionsProfil options;
  options.detail = ui_->Detail->isChecked();
  options.nonTri = ui_->NonTri->isChecked();
  options.profils = &profils;
  Fin fin = Fin::Arret;
  services_.Lancer(
      [&](const Contexte&) { fin = factor::EnregistrerEtProfiler(contexte_, etat_.textes, noms, options); });
  if (fin != Fin::Normale) return;
  Services& services = services_;
  const Contexte contexte = contexte_;
  accept();
  if (FairePlace<ImageProfil>(services)) Montrer<ImageProfil>(services, contexte, std::move(profils));
}

ImageProfil::ImageProfil(Services& services, const Contexte& contexte, std::vector<factor::ProfilDeModalite> profils)
    : Forme(services, contexte, Qt::Window), profils_(std::move(profils)), ui_(std::make_unique<Ui::ImageProfil>()) {
  ui_->setupUi(this);
  for (const factor::ProfilDeModalite& profil : profils_)
    ui_->ListProfils->addItem(VersQt(Joindre({profil.nom, " ", profil.intitule})));
  connect(ui_->ListProfils, &QComboBox::currentIndexChanged, this, &ImageProfil::Dessiner);
  RelierSorties(*this, services_, *ui_->Pict2, contexte_, "Prf",
                {*ui_->BoutonEnreg, *ui_->BoutonEnregSous, *ui_->BoutonImpr}, [] { return kResolution; });
  RelierQuitter(*ui_->BoutonQuitter);
  Dessiner();
}

ImageProfil::~ImageProfil() = default;

void ImageProfil::Dessiner() {
  const int rang = ui_->ListProfils->currentIndex();
  if (rang >= 0) ui_->Pict2->Montrer(factor::DessinerProfils({&profils_[static_cast<std::size_t>(rang)], 1}));
}

void OuvrirProfilMod(Services& services) {
  if (FairePlace<ProfilMod>(services)) Montrer<ProfilMod>(services);
}

}  // namespace quelvar::forms
