#include "forms/images/fenetredessin.h"

#include <utility>

#include "forms/images/rendudessin.h"
#include "forms/images/sortiesdessin.h"
#include "forms/qt/texte.h"
#include "ui_fenetredessin.h"

namespace quelvar::forms {

FenetreDessin::FenetreDessin(Services& services, const Contexte& contexte, SujetDeDessin sujet)
    : Forme(services, contexte, Qt::Window), sujet_(std::move(sujet)), ui_(std::make_unique<Ui::FenetreDessin>()) {
  ui_->setupUi(this);
  ui_->Pict2->pageLongue = true;
  ui_->Pict2->setAccessibleName(VersQt(sujet_.nom));
  ui_->LibellePages->setText(VersQt(sujet_.choix));
  for (const std::string& page : sujet_.pages) ui_->ListPages->addItem(VersQt(page));
  const bool plusieurs = sujet_.pages.size() > 1;
  ui_->LibellePages->setVisible(plusieurs);
  ui_->ListPages->setVisible(plusieurs);
  connect(ui_->ListPages, &QComboBox::currentIndexChanged, this, &FenetreDessin::Dessiner);
  RelierSorties(*this, services_, *ui_->Pict2, contexte_, sujet_.suffixe,
                {*ui_->BoutonEnreg, *ui_->BoutonEnregSous, *ui_->BoutonImpr}, [] { return kResolution; });
  RelierQuitter(*ui_->BoutonQuitter);
  Dessiner();
}

FenetreDessin::~FenetreDessin() = default;

void FenetreDessin::Dessiner() {
  const int page = ui_->ListPages->currentIndex();
  if (page >= 0) ui_->Pict2->Montrer(sujet_.dessiner(static_cast<std::size_t>(page)));
}

void MontrerDessins(Services& services, const Contexte& contexte, SujetDeDessin sujet) {
  if (sujet.pages.empty()) return;
  for (FenetreDessin* fenetre : services.fenetre.findChildren<FenetreDessin*>())
    if (fenetre->isVisible() && fenetre->Sujet().suffixe == sujet.suffixe) services.formes.Fermer(*fenetre);
  services.formes.Presenter(*new FenetreDessin(services, contexte, std::move(sujet)));
}

}  // namespace quelvar::forms
