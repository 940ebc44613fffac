#include "forms/programmes/capture/import/apercu/apercu.h"

#include <QHeaderView>
#include <algorithm>
#include <utility>

#include "capture/classeur/classeur.h"
#include "core/programme/annulation.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/capture/import/attente/feuille.h"
#include "forms/qt/texte.h"
#include "ui_apercu.h"

namespace quelvar::forms {

namespace {

using capture::EncodageDeTable;

constexpr EncodageDeTable kEncodages[] = {
    EncodageDeTable::Utf8,        EncodageDeTable::Utf8AvecMarque, EncodageDeTable::Utf16LE, EncodageDeTable::Utf16BE,
    EncodageDeTable::Windows1252, EncodageDeTable::Latin9,         EncodageDeTable::Cp850};
constexpr char kSeparateurs[] = {';', ',', '\t', '|'};
constexpr char kDecimales[] = {',', '.'};

template <typename T, std::size_t N>
int RangDe(const T (&liste)[N], T valeur) {
  return static_cast<int>(std::find(std::begin(liste), std::end(liste), valeur) - std::begin(liste));
}

}  // namespace

ApercuImport::ApercuImport(Services& services, capture::PreparationDImport preparation, Cible cible)
    : Forme(services),
      preparation_(std::move(preparation)),
      cible_(std::move(cible)),
      ui_(std::make_unique<Ui::ApercuImport>()),
      lignes_(new LignesDApercu(preparation_, this)),
      colonnes_(new ColonnesDApercu(preparation_, this)) {
  ui_->setupUi(this);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  const QString fichier = CheminVersQt(preparation_.Fichier());
  ui_->LabelFichier->setText(QStringLiteral("Fichier : ") + CheminVersQt(preparation_.Fichier().filename()));
  ui_->LabelFichier->setToolTip(fichier);
  ui_->TextGenerique->setText(VersQt(cible_.generique));
  ui_->Lignes->setModel(lignes_);
  ui_->Colonnes->setModel(colonnes_);
  for (QTableView* table : {ui_->Lignes, ui_->Colonnes}) {
    constexpr int autourDuTexte = 8;  // pixels
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + autourDuTexte);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setTextElideMode(Qt::ElideRight);
  }
  PreparerLaLecture();
  ReprendreLesChoix();
  RelierLesControles();
  PreparerLaColonne();
  RelierLaColonne();
  RelierAide(*ui_->Aide, "mnuAImport");
  RelierQuitter(*ui_->Annuler);
  AjouterVoirLaCommande(*ui_->Lancer, [this] { return Commande(); }).setAutoDefault(false);
  MontrerTout();
  MontrerGenerique();
  Examiner();
  if (preparation_.ToutVaBien()) ui_->Lancer->setFocus();
  else ui_->Colonnes->setFocus();
}

ApercuImport::~ApercuImport() {
  // The tables are hidden behind this, and would ask their models about a preparation that is gone.
  for (QTableView* table : {ui_->Lignes, ui_->Colonnes}) table->setModel(nullptr);
}

void ApercuImport::PreparerLaLecture() {
  for (const EncodageDeTable encodage : kEncodages) ui_->ComboEncodage->addItem(VersQt(capture::NomEncodage(encodage)));
  for (const char separateur : kSeparateurs) ui_->ComboSeparateur->addItem(VersQt(capture::NomSeparateur(separateur)));
  for (const char decimale : kDecimales) ui_->ComboDecimale->addItem(VersQt(capture::NomDecimale(decimale)));
  const bool classeur = capture::GenreDe(preparation_.Fichier()) == capture::GenreDeSource::Classeur;
  ui_->ComboFeuille->setVisible(classeur);
  ui_->LibelleComboFeuille->setVisible(classeur);
  // The reading of a sheet is known, whatever it looks like.
  for (QWidget* deTexte : std::initializer_list<QWidget*>{
           ui_->LibelleComboEncodage, ui_->ComboEncodage, ui_->LibelleComboSeparateur, ui_->ComboSeparateur,
           ui_->LibelleComboDecimale, ui_->ComboDecimale, ui_->CheckGuillemets})
    deTexte->setVisible(!classeur);
  if (!classeur) return;
  for (const std::string& feuille : preparation_.Source().Feuille()->feuilles)
    ui_->ComboFeuille->addItem(VersQt(feuille));
}

void ApercuImport::RelierLesControles() {
  for (QComboBox* choix : {ui_->ComboEncodage, ui_->ComboSeparateur, ui_->ComboDecimale})
    connect(choix, &QComboBox::activated, this, &ApercuImport::ChangerLecture);
  for (QCheckBox* choix : {ui_->CheckGuillemets, ui_->CheckTitres})
    connect(choix, &QCheckBox::clicked, this, &ApercuImport::ChangerLecture);
  connect(ui_->ComboFeuille, &QComboBox::activated, this, &ApercuImport::ChangerFeuille);
  connect(ui_->TextGenerique, &QLineEdit::textChanged, this, &ApercuImport::MontrerGenerique);
  connect(ui_->Lancer, &QPushButton::clicked, this, &ApercuImport::Importer);
  connect(&examen_, &ExamenDeFond::Fini, this, &ApercuImport::PrendreLesFaits);
  connect(&examen_, &ExamenDeFond::Echoue, this, &ApercuImport::MontrerEchec);
  connect(&examen_, &ExamenDeFond::Avance, this, [this](qint64 octets) {
    const auto total = static_cast<qint64>(std::max<std::uintmax_t>(preparation_.Vue().octets, 1));
    ui_->ProgresExamen->setValue(static_cast<int>(octets * 100 / total));
  });
}

// The choices of the last import of these columns.
void ApercuImport::ReprendreLesChoix() {
  repris_.clear();
  const auto anciens = capture::ChercherAnciensChoix(cible_.repertoire, cible_.generique, preparation_.Choix());
  if (!anciens) return;
  const std::size_t repris = preparation_.Reprendre(anciens->choix);
  repris_ = VersQt(capture::DireReprise(TexteDe(anciens->fichier.filename()), repris, anciens->refus));
}

void ApercuImport::ChangerFeuille(int rang) {
  capture::FeuilleLue voulue = *preparation_.Source().Feuille();
  if (static_cast<std::size_t>(rang) == voulue.rang) return;
  voulue.rang = static_cast<std::size_t>(rang);
  examen_.Arreter();
  try {
    preparation_ = PreparerAuLoin(this, preparation_.Fichier(), capture::DesignerFeuille(voulue));
    echec_.clear();
  } catch (const Erreur& erreur) {
    services_.ecran.demander(TexteErreur(erreur), Boutons::Ok);
    MontrerTout();
    Examiner();
    return;
  } catch (const Annulation&) {  // the sheet before stays
    MontrerTout();
    Examiner();
    return;
  }
  ReprendreLesChoix();
  MontrerTout();
  Examiner();
}

void ApercuImport::ChangerLecture() {
  capture::Lecture lecture = preparation_.LectureEnCours();
  lecture.encodage = kEncodages[ui_->ComboEncodage->currentIndex()];
  lecture.separateur = kSeparateurs[ui_->ComboSeparateur->currentIndex()];
  lecture.decimale = kDecimales[ui_->ComboDecimale->currentIndex()];
  if (sender() == ui_->ComboDecimale) lecture.sourceDeDecimale = capture::SourceDeDecimale::Donnee;
  lecture.guillemets = ui_->CheckGuillemets->isChecked();
  const std::size_t detectee = std::max<std::size_t>(preparation_.Detectee().lecture.ligneTitres, 1);
  lecture.ligneTitres = ui_->CheckTitres->isChecked() ? detectee : 0;
  if (lecture == preparation_.LectureEnCours() && echec_.isEmpty()) return;
  examen_.Arreter();
  try {
    preparation_.ChangerLecture(lecture);
    echec_.clear();
  } catch (const Erreur& erreur) {
    MontrerEchec(VersQt(TexteErreur(erreur)));
    return;
  }
  MontrerTout();
  Examiner();
}

void ApercuImport::MontrerLecture() {
  const capture::Lecture& lecture = preparation_.LectureEnCours();
  const capture::LectureDetectee& vue = preparation_.Detectee();
  ui_->ComboEncodage->setCurrentIndex(RangDe(kEncodages, lecture.encodage));
  ui_->ComboSeparateur->setCurrentIndex(RangDe(kSeparateurs, lecture.separateur));
  ui_->ComboDecimale->setCurrentIndex(RangDe(kDecimales, lecture.decimale));
  ui_->CheckGuillemets->setChecked(lecture.guillemets);
  ui_->CheckTitres->setChecked(lecture.ligneTitres != 0);
  if (const auto& feuille = preparation_.Source().Feuille())
    ui_->ComboFeuille->setCurrentIndex(static_cast<int>(feuille->rang));
  ui_->LabelLecture->setText(VersQt(capture::DireReconnue(preparation_.Source(), vue.lecture, lecture)));
}

// The whole of a file whose head alone was looked at.
void ApercuImport::Examiner() {
  const bool entier = preparation_.Vue().entier;
  ui_->ProgresExamen->setVisible(!entier);
  ui_->ProgresExamen->setValue(0);
  if (!entier) examen_.Commencer(preparation_.Texte(), preparation_.LectureEnCours());
  MontrerBilan();
}

void ApercuImport::PrendreLesFaits(const capture::FaitsDeTable& faits) {
  const bool memeNombre = faits.colonnes.size() == preparation_.Colonnes().size();
  const int choisie = ui_->Colonnes->currentIndex().row();
  const bool importer = std::exchange(attend_, false);
  preparation_.PoserFaits(faits);
  ui_->ProgresExamen->setVisible(false);
  lignes_->Relire();
  if (memeNombre) colonnes_->Rafraichir();
  else colonnes_->Relire();
  ui_->Colonnes->setCurrentIndex(colonnes_->index(std::max(choisie, 0), 0));
  MontrerColonne();
  MontrerBilan();
  if (importer) Importer();
}

void ApercuImport::MontrerEchec(const QString& phrase) {
  echec_ = phrase;
  attend_ = false;
  ui_->ProgresExamen->setVisible(false);
  MontrerBilan();
}

void ApercuImport::MontrerTout() {
  montre_ = true;
  MontrerLecture();
  montre_ = false;
  lignes_->Relire();
  colonnes_->Relire();
  constexpr int kColonnesMesurees = 60;  // more take a second, and are out of sight
  constexpr int kLargeurAuPlus = 220;    // pixels: a long answer leaves room for its neighbours
  for (int c = 0; c < std::min(lignes_->columnCount({}), kColonnesMesurees); ++c) {
    ui_->Lignes->resizeColumnToContents(c);
    if (ui_->Lignes->columnWidth(c) > kLargeurAuPlus) ui_->Lignes->setColumnWidth(c, kLargeurAuPlus);
  }
  ui_->Colonnes->setCurrentIndex(colonnes_->index(0, 0));
  MontrerColonne();
  MontrerBilan();
}

}  // namespace quelvar::forms
