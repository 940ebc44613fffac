#include "forms/programmes/utilities/utilitaires.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "tables/ecapem_options.h"
#include "ui_utilitaires.h"
#include "utilities/caracteres.h"
#include "utilities/entrees/fichiers.h"
#include "utilities/gendat.h"
#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::forms {

namespace {

std::string Saisi(const QLineEdit& champ) { return DepuisQt(champ.text().trimmed()); }

// A file of the working directory goes by its name.
std::string NomChoisi(const QString& chemin, const Chemin& repertoire) {
  const QFileInfo choisi(chemin);
  if (choisi.absoluteDir() == QDir(CheminVersQt(repertoire))) return DepuisQt(choisi.fileName());
  return DepuisQt(chemin);
}

constexpr std::string_view kAideTri =
    "Tri d'un fichier de colonnes fixes.\nChoisissez le fichier A à trier, le fichier C résultant, la position et la "
    "largeur (10 max) du champ de tri. En position 0 il n'y a pas de tri : le fichier est recopié, sans ses blancs à "
    "droite si on le demande."_w;
constexpr std::string_view kAideExport =
    "Exportation d'une zone.\nChoisissez le fichier A d'origine, le fichier C résultant, la première et la dernière "
    "position de la zone. On exporte la zone, ou tout le reste de chaque ligne."_w;
constexpr std::string_view kAideListage =
    "Fichier par caractères.\nChoisissez le fichier A à regarder : chaque caractère est donné avec son code décimal."_w;
constexpr std::string_view kAideFusion =
    "Fusion de fichiers.\nChoisissez les fichiers A et B, le fichier C résultant et le type de fusion. A et B ne sont "
    "jamais modifiés. Si les *.POS existent, le résultat en a un."_w;
constexpr std::string_view kAideTableau =
    "Dans *.BRT seulement les lignes du tableau : le nom de ligne sur quatre caractères, puis les effectifs, toujours "
    "de même largeur ; pas de totaux de marge.\nDans *.MOD : ligne 1 un titre, ligne 2 les paramètres LI= (lignes), "
    "CO= (colonnes), LA= (largeur commune des cases) et éventuellement De=, puis les noms de colonne, un par ligne sur "
    "quatre caractères et, après trois blancs obligatoires, un intitulé long."_w;
constexpr std::string_view kAideGendat =
    "\nLe but est de faire l'opération inverse de celle d'un tableau croisé. Un titre comme AGE/SEX donne les noms des "
    "questions."_w;
constexpr std::string_view kAideInversion =
    "\nL'inversion fait que dans un tableau (d'extension .brt et de .mod avec les intitulés de colonne) ce qui était "
    "en ligne se trouve en colonne et réciproquement. Les intitulés de ligne passent du .brt au .mod, et "
    "réciproquement pour les intitulés de colonne.\nSi l'option Trg est prise, le tableau sera exporté en mode pour "
    "graphique triangulaire d'extension .trg"_w;
constexpr std::string_view kAideEcapem =
    "\nA la fin d'une ligne de *.BRT, un intitulé long de 10 caractères au maximum."_w;

}  // namespace

Utilitaires::Utilitaires(Services& services) : Forme(services), ui_(std::make_unique<Ui::Utilitaires>()) {
  ui_->setupUi(this);
  ui_->OptTri->setChecked(true);  // one is chosen at any time
  Recenser();
  for (const Utilitaire& utilitaire : utilitaires_)
    connect(utilitaire.choix, &QRadioButton::toggled, this, [this](bool pris) {
      if (pris) MontrerChoix();
    });
  for (QRadioButton* type : {ui_->OptMerge, ui_->OptAppend, ui_->Appareille})
    connect(type, &QRadioButton::toggled, this, &Utilitaires::MontrerChoix);
  connect(ui_->OptNoms, &QCheckBox::toggled, this, &Utilitaires::MontrerChoix);
  PoserDefauts(*this, utilities::DescriptionTri());
  PoserDefauts(*this, utilities::DescriptionExporter());
  PoserDefauts(*this, utilities::DescriptionFusionner());
  PoserDefauts(*this, utilities::DescriptionInversion());
  PoserDefauts(*this, tables::DescriptionEcapem());
  RelierFichiers();
  connect(ui_->Lancer, &QPushButton::clicked, this, [this] { Choisi().lancer(); });
  AjouterVoirLaCommande(*ui_->Lancer, [this] { return Choisi().commande(); });
  RelierAide(*ui_->BoutAide, "mnuAUtilitaires");
  RelierQuitter(*ui_->Annuler);
  MontrerChoix();
}

Utilitaires::~Utilitaires() = default;

void Utilitaires::Recenser() {
  const auto ligne = [this](const auto& programme, const auto& options) {
    return CommandeEquivalente(programme, contexte_.generique, contexte_.niveau, options);
  };
  const auto deLaTable = [this, ligne](const auto& programme) {
    return [this, ligne, &programme] { return ligne(programme, OptionsDesControles(*this, programme)); };
  };
  const auto texte = [](std::string_view debut, std::string_view suite = {}) { return VersQt(debut) + VersQt(suite); };
  utilitaires_ = {
      {ui_->OptTri, texte(kAideTri), [=, this] { return ligne(utilities::DescriptionTri(), OptionsDuTri()); },
       [this] { LancerTri(); }},
      {ui_->OptExport, texte(kAideExport),
       [=, this] { return ligne(utilities::DescriptionExporter(), OptionsDeLExport()); }, [this] { LancerExport(); }},
      {ui_->OptHexDump, texte(kAideListage),
       [=, this] { return ligne(utilities::DescriptionCaracteres(), utilities::OptionsCaracteres{a_}); },
       [this] { LancerListage(); }},
      {ui_->OptFusion, texte(kAideFusion),
       [=, this] { return ligne(utilities::DescriptionFusionner(), OptionsDeLaFusion()); }, [this] { LancerFusion(); }},
      {ui_->OptGendat, texte(kAideTableau, kAideGendat), deLaTable(utilities::DescriptionGendat()),
       [this] { LancerGendat(); }},
      {ui_->OptInvers, texte(kAideTableau, kAideInversion), deLaTable(utilities::DescriptionInversion()),
       [this] { LancerInversion(); }},
      {ui_->OptEcapem, texte(kAideTableau, kAideEcapem), deLaTable(tables::DescriptionEcapem()),
       [this] { LancerEcapem(); }},
  };
}

const Utilitaires::Utilitaire& Utilitaires::Choisi() const {
  return *std::ranges::find_if(utilitaires_, [](const Utilitaire& u) { return u.choix->isChecked(); });
}

void Utilitaires::RelierFichiers() {
  connect(ui_->CmdFichA, &QPushButton::clicked, this,
          [this] { ChoisirEntree(a_, QStringLiteral("Choisir le premier fichier dit \"A\"")); });
  connect(ui_->CmdFichB, &QPushButton::clicked, this,
          [this] { ChoisirEntree(b_, QStringLiteral("Choisir le deuxième fichier dit \"B\"")); });
  connect(ui_->CmdFichC, &QPushButton::clicked, this, &Utilitaires::ChoisirResultat);
}

void Utilitaires::ChoisirEntree(std::string& fichier, const QString& titre) {
  const std::string choisi = services_.ecran.choisirFichier(DepuisQt(titre), "Tous fichiers *.*|*.*");
  if (choisi.empty()) return;
  fichier = NomChoisi(VersQt(choisi), contexte_.repertoire);
  MontrerFichiers();
}

void Utilitaires::ChoisirResultat() {
  // The programs ask before they write over a file that they read; of another one the dialog asks.
  const QString choisi =
      services_.ChoisirAEcrire({QStringLiteral("Définir le fichier \"C\" résultant"),
                                CheminVersQt(contexte_.repertoire), QStringLiteral("Tous fichiers|*.*")});
  if (choisi.isEmpty()) return;
  c_ = NomChoisi(choisi, contexte_.repertoire);
  MontrerFichiers();
}

void Utilitaires::MontrerFichiers() {
  if (!a_.empty()) ui_->LabelA->setText(VersQt(a_));
  if (!b_.empty()) ui_->LabelB->setText(VersQt(b_));
  if (!c_.empty()) ui_->LabelC->setText(VersQt(c_));
}

void Utilitaires::MontrerChoix() {
  const bool fusion = ui_->OptFusion->isChecked();
  const bool tableau = ui_->OptGendat->isChecked() || ui_->OptInvers->isChecked() || ui_->OptEcapem->isChecked();
  ui_->ChampTri->setVisible(ui_->OptTri->isChecked());
  ui_->ChampExport->setVisible(ui_->OptExport->isChecked());
  ui_->ChampFusion->setVisible(fusion);
  ui_->FrInvers->setVisible(ui_->OptInvers->isChecked());
  ui_->FrNoms->setVisible(ui_->OptEcapem->isChecked());
  ui_->FrVerif->setEnabled(ui_->OptMerge->isChecked());
  ui_->FrIdent->setEnabled(ui_->Appareille->isChecked());
  for (QRadioButton* nom : {ui_->OptDefaut, ui_->OptCour, ui_->OptCour4}) nom->setEnabled(ui_->OptNoms->isChecked());
  ui_->FrFichiers->setVisible(!tableau);
  for (QWidget* controle : std::initializer_list<QWidget*>{ui_->CmdFichB, ui_->LabelB}) controle->setVisible(fusion);
  for (QWidget* controle : std::initializer_list<QWidget*>{ui_->CmdFichC, ui_->LabelC})
    controle->setVisible(!ui_->OptHexDump->isChecked());
  ui_->TextAide->setPlainText(Choisi().aide);
}

bool Utilitaires::Complet(std::string_view manque) {
  if (manque.empty()) return true;
  ui_->TextAide->setPlainText(VersQt(manque));
  services_.ecran.biper();
  return false;
}

utilities::OptionsTriFichier Utilitaires::OptionsDuTri() const {
  utilities::OptionsTriFichier options = OptionsDesControles(*this, utilities::DescriptionTri());
  options.fichierA = a_;
  options.fichierC = c_;
  return options;
}

utilities::OptionsExportation Utilitaires::OptionsDeLExport() const {
  utilities::OptionsExportation options = OptionsDesControles(*this, utilities::DescriptionExporter());
  options.a = a_;
  options.c = c_;
  return options;
}

utilities::OptionsFusion Utilitaires::OptionsDeLaFusion() const {
  utilities::OptionsFusion options = OptionsDesControles(*this, utilities::DescriptionFusionner());
  options.a = a_;
  options.b = b_;
  options.c = c_;
  // The boxes of a verification propose them, also when their frame is closed.
  options.positionA = Saisi(*ui_->TextPosA);
  options.positionB = Saisi(*ui_->TextPosB);
  options.largeur = Saisi(*ui_->TextLarg);
  return options;
}

// The question on a sort in place comes between what is missing: the program that the table names would ask it again.
void Utilitaires::LancerTri() {
  const utilities::OptionsTriFichier options = OptionsDuTri();
  if (a_.empty() || c_.empty()) {
    Complet(utilities::RefusDuFormulaire(options));
    return;
  }
  if (utilities::MemeFichier(contexte_, a_, c_) &&
      services_.ecran.demander(utilities::kTriSurPlace, Boutons::OuiNon) != Reponse::Oui)
    return;
  if (!Complet(utilities::RefusDuFormulaire(options))) return;
  Finir(LancerEtape([&](const Contexte& sur) { return utilities::TriDesUtilitaires(sur, options); }));
}

void Utilitaires::LancerExport() {
  const utilities::OptionsExportation options = OptionsDeLExport();
  if (Complet(utilities::ManqueExportation(contexte_, options)))
    Finir(Lancer(utilities::DescriptionExporter(), options));
}

void Utilitaires::LancerListage() {
  const utilities::OptionsCaracteres options{a_};
  if (Complet(utilities::ManqueCaracteres(contexte_, options)))
    Finir(Lancer(utilities::DescriptionCaracteres(), options));
}

void Utilitaires::LancerFusion() {
  const utilities::OptionsFusion options = OptionsDeLaFusion();
  if (Complet(utilities::ManqueFusion(contexte_, options))) Finir(Lancer(utilities::DescriptionFusionner(), options));
}

bool Utilitaires::AUnGenerique() { return Complet(contexte_.generique.empty() ? utilities::kRequiertUnGenerique : ""); }

void Utilitaires::LancerGendat() {
  if (!AUnGenerique() || Lancer(utilities::DescriptionGendat(), {}) != Fin::Normale) return;
  services_.relireGenerique();
  accept();
}

void Utilitaires::LancerInversion() {
  if (!AUnGenerique()) return;
  std::string nouveau;
  utilities::OptionsInversion options = OptionsDesControles(*this, utilities::DescriptionInversion());
  options.nouveau = &nouveau;
  if (Lancer(utilities::DescriptionInversion(), options) != Fin::Normale) return;
  services_.adopterGenerique(nouveau);
  accept();
}

void Utilitaires::LancerEcapem() {
  if (AUnGenerique())
    Finir(Lancer(tables::DescriptionEcapem(), OptionsDesControles(*this, tables::DescriptionEcapem())));
}

void Utilitaires::Finir(std::optional<Fin> fin) {
  if (fin == Fin::Normale) accept();
}

void OuvrirUtilitaires(Services& services) {
  if (FairePlace<Utilitaires>(services)) Montrer<Utilitaires>(services);
}

}  // namespace quelvar::forms
