#include "forms/programmes/sorts/choixtriapl.h"

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/programmes/sorts/fichierdonnees.h"
#include "sorts/triapl/triapl_options.h"
#include "ui_choixtriapl.h"

namespace quelvar::forms {

ChoixTriapl::ChoixTriapl(Services& services) : Forme(services), ui_(std::make_unique<Ui::ChoixTriapl>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, sorts::DescriptionTriapl());
  connect(ui_->CaseTriang, &QCheckBox::toggled, this, [this](bool coche) {
    if (coche) ui_->BoutNRNon->setChecked(true);
  });
  connect(ui_->BoutonTriapl, &QPushButton::clicked, this, &ChoixTriapl::LancerTri);
  RelierQuitter(*ui_->BoutonTriaplNull);
  AjouterVoirLaCommande(*ui_->BoutonTriapl, [this] {
    return CommandeAvecFichier(
        CommandeEquivalente(sorts::DescriptionTriapl(), contexte_.generique, contexte_.niveau, Options()),
        ui_->CaseDat->isChecked());
  });
  ui_->BoutonTriapl->setFocus();
}

ChoixTriapl::~ChoixTriapl() = default;

sorts::OptionsTriapl ChoixTriapl::Options() const { return OptionsDesControles(*this, sorts::DescriptionTriapl()); }

void ChoixTriapl::LancerTri() {
  if (!services_.lanceur.PeutLancer()) return;
  const std::optional<std::string> donnees = ChoisirFichierDeDonnees(services_, ui_->CaseDat->isChecked());
  if (!donnees) return;
  sorts::OptionsTriapl options = Options();
  options.fichierDonnees = *donnees;
  if (Lancer(sorts::DescriptionTriapl(), options)) accept();
}

// Its boxes stand at their defaults each time.
void OuvrirTriapl(Services& services) {
  if (services.session.niveau < kNiveauAvance) services.Lancer(sorts::DescriptionTriapl());
  else if (FairePlace<ChoixTriapl>(services)) Montrer<ChoixTriapl>(services);
}

}  // namespace quelvar::forms
