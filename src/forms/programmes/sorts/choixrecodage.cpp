#include "forms/programmes/sorts/choixrecodage.h"

#include "forms/pieces/options.h"
#include "forms/programmes/sorts/fichierdonnees.h"
#include "forms/programmes/sorts/preprecod.h"
#include "sorts/recodage/recodage_options.h"
#include "ui_choixrecodage.h"

namespace quelvar::forms {

namespace {

// The recoding does what the .POS says: rules that are typed and not saved are asked about, and given up or kept.
bool SansReglesEnAttente(Services& services) {
  PrepRecod* preparation = services.formes.Ouverte<PrepRecod>();
  return preparation == nullptr || !preparation->ATravail() || services.formes.Fermer(*preparation);
}

// The form proposes a free name rather than replace the files of a generic: what it shows as its command, and what is
// launched, both say so.
sorts::OptionsRecodage SansRemplacer(sorts::OptionsRecodage options) {
  options.remplacer = false;
  return options;
}

// The session follows a complete run to the new generic. False for a run that was given up.
bool Recoder(Services& services, const Contexte& contexte, sorts::OptionsRecodage options) {
  Session& session = services.session;
  sorts::SuiteRecodage suite{contexte.generique, session.passerModalites};
  options.suite = &suite;
  const std::optional<Fin> fin = services.LancerSur(
      contexte, [&](const Contexte& sur) { return sorts::DescriptionRecodage().Executer(sur, options); });
  session.passerModalites = suite.passerModalites;
  if (fin == Fin::Normale) services.adopterGenerique(suite.generique);
  return fin.has_value();
}

}  // namespace

ChoixRecodage::ChoixRecodage(Services& services) : Forme(services), ui_(std::make_unique<Ui::ChoixRecodage>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, sorts::DescriptionRecodage());
  connect(ui_->CaseTriang, &QCheckBox::toggled, this, &ChoixRecodage::Accorder);
  Accorder(ui_->CaseTriang->isChecked());
  connect(ui_->BoutonTriapl, &QPushButton::clicked, this, &ChoixRecodage::LancerRecodage);
  RelierQuitter(*ui_->BoutonTriaplNull);
  RelierCommandeAvecFichier(
      *ui_->BoutonTriapl, sorts::DescriptionRecodage(), contexte_, [this] { return Options(); }, *ui_->CaseDat);
  ui_->BoutonTriapl->setFocus();
}

ChoixRecodage::~ChoixRecodage() = default;

// Of the two boxes one goes with the recoded questions alone, the other with all questions.
void ChoixRecodage::Accorder(bool seules) {
  QCheckBox* exclue = seules ? ui_->CaseRepMult : ui_->CaseVerif;
  exclue->setChecked(false);
  exclue->setEnabled(false);
  (seules ? ui_->CaseVerif : ui_->CaseRepMult)->setEnabled(true);
}

sorts::OptionsRecodage ChoixRecodage::Options() const {
  return SansRemplacer(OptionsDesControles(*this, sorts::DescriptionRecodage()));
}

void ChoixRecodage::LancerRecodage() {
  if (!services_.lanceur.PeutLancer() || !SansReglesEnAttente(services_)) return;
  const std::optional<std::string> donnees = ChoisirFichierDeDonnees(services_, ui_->CaseDat->isChecked());
  if (!donnees) return;
  sorts::OptionsRecodage options = Options();
  options.fichierDonnees = *donnees;
  if (Recoder(services_, contexte_, options)) accept();
}

// Its boxes stand at their defaults each time.
void OuvrirOutils(Services& services) {
  if (services.session.niveau < kNiveauAvance) {
    if (SansReglesEnAttente(services)) Recoder(services, services.ContexteEnCours(), SansRemplacer({}));
  } else if (FairePlace<ChoixRecodage>(services)) {
    Montrer<ChoixRecodage>(services);
  }
}

}  // namespace quelvar::forms
