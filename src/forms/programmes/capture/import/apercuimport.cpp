#include "forms/programmes/capture/import/apercuimport.h"

#include <QHeaderView>
#include <QLocale>
#include <QPalette>
#include <algorithm>
#include <utility>

#include "capture/apercu/options.h"
#include "capture/classeur/classeur.h"
#include "core/programme/annulation.h"
#include "core/programme/lieunomme.h"
#include "core/session/generique_libre.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/capture/import/avancement.h"
#include "forms/programmes/capture/import/lecturedefeuille.h"
#include "forms/texte/texte_qt.h"
#include "ui_apercuimport.h"

namespace quelvar::forms {

namespace {

using capture::Encodage;

constexpr Encodage kEncodages[] = {Encodage::Utf8,    Encodage::Utf8AvecMarque, Encodage::Utf16LE,
                                   Encodage::Utf16BE, Encodage::Windows1252,    Encodage::Latin9,
                                   Encodage::Cp850};
constexpr char kSeparateurs[] = {';', ',', '\t', '|'};
constexpr char kDecimales[] = {',', '.'};
const QColor kFondBon(221, 242, 221);
const QColor kFondAVoir(255, 243, 205);
const QColor kFondFautif(250, 218, 218);

QString NombreFr(std::int64_t n) { return QLocale(QLocale::French).toString(static_cast<qlonglong>(n)); }

QString Pluriel(std::int64_t n, const char* un, const char* plusieurs) {
  return NombreFr(n) + u' ' + QString::fromUtf8(n < 2 ? un : plusieurs);
}

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
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setTextElideMode(Qt::ElideRight);
  }
  PreparerLaLecture();
  ReprendreLesChoix();
  RelierLesControles();
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
  for (const Encodage encodage : kEncodages) ui_->ComboEncodage->addItem(VersQt(capture::NomEncodage(encodage)));
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
  connect(&examen_, &ExamenDeFond::Echec, this, &ApercuImport::MontrerEchec);
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
  const QString fichier = CheminVersQt(anciens->fichier.filename());
  const auto repris = static_cast<std::int64_t>(preparation_.Reprendre(anciens->choix));
  if (!anciens->refus.empty())
    repris_ = QStringLiteral("Les choix de la dernière importation (%1) ne sont pas repris : %2")
                  .arg(fichier, VersQt(anciens->refus));
  else if (repris > 0)
    repris_ = QStringLiteral("Les choix de la dernière importation (%1) sont repris pour %2.")
                  .arg(fichier, Pluriel(repris, "colonne", "colonnes"));
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
  QString texte =
      QStringLiteral("Reconnu dans le fichier : ") + VersQt(capture::DireLecture(preparation_.Source(), vue.lecture));
  if (!texte.endsWith(u'.')) texte += u'.';
  if (lecture != vue.lecture) texte += QStringLiteral(" Vous avez changé cette lecture.");
  ui_->LabelLecture->setText(texte);
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
  constexpr int kColonnesMesurees = 60;
  constexpr int kLargeurAuPlus = 220;
  for (int c = 0; c < std::min(lignes_->columnCount({}), kColonnesMesurees); ++c) {
    ui_->Lignes->resizeColumnToContents(c);
    if (ui_->Lignes->columnWidth(c) > kLargeurAuPlus) ui_->Lignes->setColumnWidth(c, kLargeurAuPlus);
  }
  ui_->Colonnes->setCurrentIndex(colonnes_->index(0, 0));
  MontrerColonne();
  MontrerBilan();
}

// What stands in the way, then what is only to be known.
QString ApercuImport::TexteDesFautes() const {
  QStringList lignes;
  if (!echec_.isEmpty()) lignes << echec_;
  for (const std::string& refus : preparation_.Refus()) lignes << VersQt(refus);
  for (const std::string& doute : preparation_.Doutes()) lignes << VersQt(doute);
  for (const std::string& remarque : preparation_.Remarques()) lignes << VersQt(remarque);
  if (!repris_.isEmpty()) lignes << repris_;
  return lignes.join(u'\n');
}

void ApercuImport::MontrerBilan() {
  const bool fautif = !echec_.isEmpty() || !preparation_.Refus().empty();
  const bool bon = echec_.isEmpty() && preparation_.ToutVaBien();
  const auto& choix = preparation_.Choix();
  const auto questions = std::ranges::count(choix, capture::Genre::Codes, &capture::ChoixDeColonne::genre);
  const auto numeros = std::ranges::count(choix, capture::Genre::Numero, &capture::ChoixDeColonne::genre);
  const auto ecartees = std::ranges::count(choix, capture::Genre::Ecartee, &capture::ChoixDeColonne::genre);
  const auto autres = static_cast<std::int64_t>(choix.size()) - questions - numeros - ecartees;
  const std::int64_t individus = preparation_.Vue().faits.individus;
  const QString compte = preparation_.Vue().entier ? Pluriel(individus, "individu", "individus")
                                                   : QStringLiteral("le compte des individus est en cours");
  QString texte;
  if (!echec_.isEmpty()) texte = QStringLiteral("Ce fichier ne peut pas être importé ainsi : voyez ci-dessous.");
  else if (fautif)
    texte = QStringLiteral(
        "À corriger avant d'importer : les cellules en rouge, dites ci-dessous une à une. Changez ce que "
        "devient leur colonne, ou corrigez le fichier.");
  else if (bon)
    texte = QStringLiteral("Tout va bien : %1%2, %3. Entrée importe.")
                .arg(Pluriel(questions, "colonne de codes", "colonnes de codes"),
                     numeros > 0 ? QStringLiteral(" et le numéro de l'individu") : QString(), compte);
  else
    texte = QStringLiteral(
                "%1 : %2 de codes, %3 à coder ou à classer, %4. Voyez ce que chacune devient, "
                "puis Entrée importe.")
                .arg(compte, NombreFr(questions), NombreFr(autres), Pluriel(ecartees, "écartée", "écartées"));
  ui_->LabelBilan->setText(texte);
  QPalette palette = ui_->FrBilan->palette();
  palette.setColor(QPalette::Window, fautif ? kFondFautif : bon ? kFondBon : kFondAVoir);
  palette.setColor(QPalette::WindowText, Qt::black);
  ui_->FrBilan->setPalette(palette);
  const QString fautes = TexteDesFautes();
  ui_->TextFautes->setPlainText(fautes);
  ui_->TextFautes->setVisible(!fautes.isEmpty());
  constexpr qsizetype kLignesAuPlus = 7;
  const auto lignes = static_cast<int>(std::min(fautes.count(u'\n') + 1, kLignesAuPlus));
  ui_->TextFautes->setFixedHeight(lignes * fontMetrics().lineSpacing() + 12);
  ui_->Lancer->setEnabled(!fautif && !attend_);
  const std::int64_t vides = preparation_.Vue().faits.lignesVides;
  QString pied = preparation_.Vue().entier
                     ? QStringLiteral("%1 lues").arg(Pluriel(individus + vides, "ligne", "lignes"))
                     : QStringLiteral("Examen du fichier entier en cours...");
  if (preparation_.Vue().entier && vides > 0)
    pied += QStringLiteral(", dont %1 vides, laissées de côté").arg(NombreFr(vides));
  if (attend_) pied = QStringLiteral("L'importation suivra la fin de l'examen du fichier (Échap y renonce)...");
  ui_->LabelCompte->setText(pied + QStringLiteral("   —   les fichiers iront dans ") +
                            VersQt(TexteRepertoire(cible_.repertoire)));
}

std::string ApercuImport::Generique() const {
  const std::string saisi = NomDepuisUtf8(ui_->TextGenerique->text().toStdString());
  return std::string(Rogner(std::string_view(saisi).substr(0, saisi.find('.'))));
}

void ApercuImport::MontrerGenerique() {
  const std::string generique = Generique();
  const std::string refus = capture::RefusDuGenerique(generique);
  QString texte;
  if (!refus.empty()) texte = VersQt(refus);
  else if (capture::GeneriqueOccupe(cible_.repertoire, generique, preparation_.Fichier()))
    texte = QStringLiteral("existe déjà");
  else texte = QStringLiteral("nouvelle enquête");
  ui_->LabelGenerique->setText(texte);
}

std::string ApercuImport::Commande() const {
  capture::OptionsImport options = preparation_.Options();
  options.choix.clear();
  options.fichierChoix = Generique() + ".IMC";
  options.remplacer = capture::GeneriqueOccupe(cible_.repertoire, Generique(), preparation_.Fichier());
  return CommandeEquivalente(capture::DescriptionImport(), Generique(), services_.session.niveau, options);
}

void ApercuImport::Importer() {
  if (!ui_->Lancer->isEnabled() && !attend_) return;
  if (const std::string refus = capture::RefusDuGenerique(Generique()); !refus.empty()) {
    ui_->TextGenerique->setFocus();
    services_.ecran.biper();
    return;
  }
  attend_ = examen_.EnCours();
  MontrerBilan();
  if (attend_) return;
  if (!preparation_.Refus().empty()) {
    ui_->TextFautes->setFocus();
    services_.ecran.biper();
    return;
  }
  LancerImport();
}

namespace {

// The screen of the run, with a box beside that lets the user give it up.
Dialogue EcranAbandonnable(const Dialogue& ecran, Avancement& avancement) {
  Dialogue abandonnable = ecran;
  auto maximum = std::make_shared<std::int64_t>(1);
  abandonnable.montrerProgression = [&ecran, &avancement, maximum](std::int64_t valeur) {
    *maximum = std::max<std::int64_t>(valeur, 1);
    if (valeur == 0) avancement.Cacher();
    ecran.montrerProgression(valeur);
  };
  abandonnable.progresser = [&ecran, &avancement, maximum](std::int64_t faits) {
    ecran.progresser(faits);
    const auto pourcent = static_cast<int>(std::min<std::int64_t>(faits * 100 / *maximum, 100));
    if (!avancement.Montrer(QStringLiteral("Importation en cours"), pourcent)) throw Annulation();
  };
  return abandonnable;
}

}  // namespace

void ApercuImport::LancerImport() {
  const std::string generique = Generique();
  const bool dit = cible_.remplacer && generique == cible_.generique;
  if (!dit && capture::GeneriqueOccupe(cible_.repertoire, generique, preparation_.Fichier()) &&
      services_.ecran.demander(
          Joindre({"Le générique "_w, generique, " existe déjà : ses fichiers seront remplacés. L'acceptez-vous ?"_w}),
          Boutons::NonOui) != Reponse::Oui) {
    ui_->TextGenerique->setFocus();
    return;
  }
  if (!services_.formes.LaisserLeTravail()) return;  // on the files that the import replaces
  Avancement avancement(this, QStringLiteral("Importation"));
  Dialogue ecran = EcranAbandonnable(services_.ecran, avancement);
  const Contexte contexte{cible_.repertoire, generique, services_.session.niveau, &ecran};
  capture::OptionsImport options = preparation_.Options();
  options.remplacer = true;  // it was asked here
  Fin fin = Fin::Arret;
  bool renonce = false;
  const bool lancee = services_.Lancer([&](const Contexte&) {
    try {
      fin = capture::Importer(contexte, options);
    } catch (const Annulation&) {  // nothing is written, and the preview stays
      renonce = true;
    }
  });
  if (!lancee || renonce) return;
  if (fin == Fin::Normale) {
    if (cible_.repertoire != services_.session.repertoire) PrendreRepertoire(services_.session, cible_.repertoire);
    services_.adopterGenerique(generique);
  }
  accept();
}

// --- what opens it ---

namespace {

// A directory that was opened or chosen is where the files go; before that they go where the source lies.
Chemin RepertoireDe(const Session& session, const Chemin& fichier) {
  if (session.ouverture != Ouverture::SansInitialisation || session.repertoire != session.repertoireProgramme)
    return session.repertoire;
  const Chemin la = fichier.parent_path();
  return la.empty() ? session.repertoire : la;
}

void ImporterDBase(Services& services, const Chemin& fichier) {
  const Chemin repertoire = RepertoireDe(services.session, fichier);
  const std::string saisi = services.ecran.saisir(
      Joindre({"Le générique, nom commun des fichiers de l'enquête, pour "_w, TexteDe(fichier.filename())}),
      capture::GeneriquePropose(repertoire, fichier));
  const std::string generique(Rogner(std::string_view(saisi).substr(0, saisi.find('.'))));
  if (generique.empty()) return;
  if (const std::string refus = capture::RefusDuGenerique(generique); !refus.empty()) {
    services.ecran.demander(refus, Boutons::Ok);
    return;
  }
  const Contexte contexte{repertoire, generique, services.session.niveau, &services.ecran};
  if (capture::GeneriqueOccupe(repertoire, generique, fichier) && !PeutEtreRemplace(contexte, generique)) return;
  if (!services.formes.LaisserLeTravail()) return;
  capture::OptionsImport options;
  options.fichier = TexteDe(fichier);
  Fin fin = Fin::Arret;
  services.Lancer([&](const Contexte&) { fin = capture::Importer(contexte, options); });
  if (fin != Fin::Normale) return;
  if (repertoire != services.session.repertoire) PrendreRepertoire(services.session, repertoire);
  services.adopterGenerique(generique);
}

// Nothing, and a box that tells why, when the file cannot be read.
std::optional<capture::PreparationDImport> Preparer(Services& services, const Chemin& fichier) {
  try {
    if (capture::GenreDe(fichier) != capture::GenreDeSource::Classeur) return capture::PreparationDImport(fichier, {});
    return PreparerAuLoin(&services.fenetre, fichier, {});
  } catch (const Erreur& erreur) {
    services.ecran.demander(Joindre({TexteDe(fichier.filename()), " : ", TexteErreurDuFichierNomme(erreur)}),
                            Boutons::Ok);
    return std::nullopt;
  } catch (const Annulation&) {
    return std::nullopt;
  }
}

}  // namespace

void ImporterFichier(Services& services, const Chemin& fichier) {
  if (!FairePlace<ApercuImport>(services)) return;
  if (capture::GenreDe(fichier) == capture::GenreDeSource::DBase) {
    ImporterDBase(services, fichier);
    return;
  }
  std::optional<capture::PreparationDImport> preparation = Preparer(services, fichier);
  if (!preparation) return;
  const Chemin repertoire = RepertoireDe(services.session, fichier);
  Montrer<ApercuImport>(services, *std::move(preparation),
                        ApercuImport::Cible{repertoire, capture::GeneriquePropose(repertoire, fichier), false});
}

void ImporterSourceDuGenerique(Services& services, bool toujoursMontrer) {
  if (!FairePlace<ApercuImport>(services)) return;
  const Contexte contexte = services.ContexteEnCours();
  std::optional<Chemin> source = contexte.Chercher(".CSV");
  if (!source) source = contexte.Chercher(".TXT");
  if (!source) return;
  std::optional<capture::PreparationDImport> preparation = Preparer(services, *source);
  if (!preparation) return;
  if (!toujoursMontrer && preparation->Vue().entier && preparation->ToutVaBien()) {
    const capture::OptionsImport options = preparation->Options();
    services.Lancer([&](const Contexte& la) { capture::Importer(la, options); });
    services.relireGenerique();
    return;
  }
  Montrer<ApercuImport>(services, *std::move(preparation),
                        ApercuImport::Cible{contexte.repertoire, contexte.generique, true});
}

}  // namespace quelvar::forms
