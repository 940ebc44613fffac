#include "forms/programmes/capture/import/fimport.h"

#include "capture/dbase/import.h"
#include "capture/dbase/tableau.h"
#include "capture/import_options.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/programmes/capture/import/source.h"
#include "forms/qt/texte.h"
#include "ui_fimport.h"

namespace quelvar::forms {

namespace {

constexpr std::string_view kUneSeule = "Vous ne pouvez prendre qu'une seule des options";

}  // namespace

FImport::FImport(Services& services) : Forme(services), ui_(std::make_unique<Ui::FImport>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, capture::DescriptionImportBurt());
  const capture::SourcesPresentes sources = capture::ChercherSources(services.ContexteEnCours());
  const int niveau = services.session.niveau;
  ui_->LabelDBF->setText(VersQt(capture::TextePresence(sources.dbf)));
  ui_->LabelDAT->setText(VersQt(capture::TextePresence(sources.dat)));
  ui_->LabelPOS->setText(VersQt(capture::TextePresence(sources.pos)));
  ui_->LabelBRT->setText(VersQt(capture::TextePresence(sources.brt)));
  ui_->LabelCSV->setText(VersQt(capture::TextePresence(sources.csv)));
  ui_->LabelTXT->setText(VersQt(capture::TextePresence(sources.txt)));
  ui_->LabelIMP->setText(VersQt(capture::TextePresence(sources.imp)));
  const QString aide = VersQt(capture::AideImport(sources, niveau));
  ui_->TextAide->setPlainText(aide);
  ui_->FrOptions->setVisible(niveau >= kNiveauAvance);
  RelierAide(*ui_->Aide, "mnuAImport");
  connect(ui_->CheckBRT, &QCheckBox::toggled, this, [this, aide](bool burt) {
    ui_->FrNoms->setEnabled(burt);
    ui_->TextAide->setPlainText(burt ? VersQt(capture::AideImportBurt()) : aide);
  });
  connect(ui_->BoutFichier, &QPushButton::clicked, this, &FImport::ChoisirFichier);
  connect(ui_->BoutAutre, &QPushButton::clicked, this, [this] {
    accept();
    OuvrirSourceImport(services_);
  });
  connect(ui_->Lancer, &QPushButton::clicked, this, &FImport::LancerImport);
  RelierQuitter(*ui_->Annuler);
  AjouterVoirLaCommande(*ui_->Lancer, [this] { return Commande(); });
}

FImport::~FImport() = default;

capture::OptionsImportBurt FImport::OptionsBurt() const {
  return OptionsDesControles(*this, capture::DescriptionImportBurt());
}

std::string FImport::Commande() const {
  const auto commande = [this](const auto& programme, const auto& options) {
    return CommandeEquivalente(programme, contexte_.generique, contexte_.niveau, options);
  };
  if (ui_->CheckTrg->isChecked() && ui_->CheckBRT->isChecked()) return Joindre({"(aucune : "_w, kUneSeule, ")"});
  if (ui_->CheckBRT->isChecked()) return commande(capture::DescriptionImportBurt(), OptionsBurt());
  if (ui_->CheckTrg->isChecked()) return commande(capture::DescriptionImportTableau(), capture::OptionsImportTableau{});
  return commande(capture::DescriptionImportDbf(), capture::OptionsImportDbf{});
}

void FImport::LancerImport() {
  if (ui_->CheckTrg->isChecked() && ui_->CheckBRT->isChecked()) {
    services_.ecran.demander(kUneSeule, Boutons::Ok);
    return;
  }
  if (!services_.formes.LaisserLeTravail()) return;  // on the files that the import replaces
  std::optional<Fin> fin;
  if (ui_->CheckBRT->isChecked()) {
    const capture::OptionsImportBurt options = OptionsBurt();
    if (const std::string_view refus = capture::RefusDImporterBurt(options); !refus.empty()) {
      services_.ecran.demander(refus, Boutons::Ok);
      return;
    }
    fin = Lancer(capture::DescriptionImportBurt(), options);
  } else if (ui_->CheckTrg->isChecked()) {
    fin = Lancer(capture::DescriptionImportTableau(), {});
  } else {
    fin = Lancer(capture::DescriptionImportDbf(), {});
  }
  if (!fin) return;
  services_.relireGenerique();
  accept();
}

void FImport::ChoisirFichier() {
  const std::string fichier = services_.ecran.choisirFichier("Fichier du tableau de Burt issu de SAS",
                                                             "Fichiers *.txt|*.txt|Tous fichiers *.*|*.*");
  if (!fichier.empty()) ui_->TextFichier->setText(VersQt(fichier));
}

}  // namespace quelvar::forms
