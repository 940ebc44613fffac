#include "forms/editeur/frmsdi.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>

#include "forms/editeur/frmfind.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/ecran.h"
#include "forms/qt/garde.h"
#include "forms/qt/imprimante.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "forms/texte/enregistrement.h"
#include "forms/texte/impression.h"
#include "ui_frmsdi.h"

namespace quelvar::forms {

frmSDI::frmSDI(ServicesEditeur services, Genre genre, QWidget* parent)
    : QMainWindow(parent), services_(std::move(services)), genre_(genre), ui_(std::make_unique<Ui::frmSDI>()) {
  ui_->setupUi(this);
  constexpr int ecart = 6;  // pixels on both sides of what the status bar holds
  for (QLabel** libelle : {&position_, &selection_, &frappe_, &forme_}) {
    *libelle = new QLabel(this);
    (*libelle)->setContentsMargins(ecart, 0, ecart, 0);
    ui_->BarreDEtat->addPermanentWidget(*libelle);
  }
  position_->setObjectName(QStringLiteral("LabelPosition"));
  selection_->setObjectName(QStringLiteral("LabelSelection"));
  frappe_->setObjectName(QStringLiteral("LabelFrappe"));
  frappe_->setToolTip(QStringLiteral("INS : insertion ; RFP : refrappe (touche Inser)"));
  forme_->setObjectName(QStringLiteral("LabelForme"));
  forme_->setToolTip(QStringLiteral("Codage des caractères et fins de ligne du fichier"));
  RelierMenus();
  RelierEdition();
  if (genre_ == Genre::Lecteur) PreparerLecteur();
  else connect(ui_->TexteEd, &QPlainTextEdit::modificationChanged, this, &QWidget::setWindowModified);
  PreparerSecours();
  MontrerTitre();
  MontrerForme();
  MontrerPosition();
  ui_->TexteEd->setFocus();
}

frmSDI::~frmSDI() = default;

void frmSDI::RelierMenus() {
  const auto relier = [this](QAction* action, const Gestes& effet) {
    connect(action, &QAction::triggered, this, [this, effet] {
      Garder(effet, [this](const Erreur& erreur) { DemanderReponse(this, VersQt(TexteErreur(erreur)), Boutons::Ok); });
    });
  };
  relier(ui_->mnuNouveau, [this] { Nouveau(); });
  relier(ui_->mnuOuvrir, [this] { OuvrirParDialogue(); });
  relier(ui_->mnuRecharger, [this] { Recharger(); });
  relier(ui_->mnuEnregistrer, [this] { Enregistrer(); });
  relier(ui_->mnuEnregSous, [this] { EnregistrerSous(); });
  relier(ui_->mnuImprimer, [this] { DemanderImpression(); });
  relier(ui_->mnuPDF, [this] { DemanderPdf(); });
  relier(ui_->mnuFermer, [this] { close(); });
  relier(ui_->mnuChercher, [this] { OuvrirRecherche(false); });
  relier(ui_->mnuRemplacer, [this] { OuvrirRecherche(true); });
  relier(ui_->mnuSuivant, [this] { Chercher(false); });
  relier(ui_->mnuPrecedent, [this] { Chercher(true); });
  relier(ui_->mnuAllerLigne, [this] { AllerALigne(); });
  relier(ui_->mnuAideEditeur, [this] { services_.aide(); });
  relier(ui_->mnuPartiePrec, [this] { LirePartieDuFichier(partie_ - 1); });
  relier(ui_->mnuPartieSuiv, [this] { LirePartieDuFichier(partie_ + 1); });
  connect(ui_->mnuRecents, &QMenu::aboutToShow, this, &frmSDI::PreparerRecents);
  connect(ui_->mnuRegle, &QAction::toggled, ui_->TexteEd, &EditTexte::MontrerRegle);
  connect(ui_->mnuBarre, &QAction::toggled, ui_->BarreDOutils, &QToolBar::setVisible);
  setContextMenuPolicy(Qt::NoContextMenu);  // the text has its own
  ui_->mnuPartiePrec->setVisible(false);
  ui_->mnuPartieSuiv->setVisible(false);
}

void frmSDI::RelierEdition() {
  EditTexte* texte = ui_->TexteEd;
  const auto relier = [](QAction* action, auto* objet, auto effet) {
    connect(action, &QAction::triggered, objet, effet);
  };
  relier(ui_->mnuAnnuler, texte, &QPlainTextEdit::undo);
  relier(ui_->mnuRetablir, texte, &QPlainTextEdit::redo);
  relier(ui_->mnuCouper, texte, &QPlainTextEdit::cut);
  relier(ui_->mnuCopier, texte, &QPlainTextEdit::copy);
  relier(ui_->mnuColler, texte, &QPlainTextEdit::paste);
  relier(ui_->mnuToutSelect, texte, [texte] {
    texte->AcheverChargement();
    texte->selectAll();
  });
  const auto taille = [texte](int ecart) { texte->FixerTailleCaracteres(texte->font().pointSize() + ecart); };
  relier(ui_->mnuAgrandir, texte, [taille] { taille(1); });
  relier(ui_->mnuReduire, texte, [taille] { taille(-1); });
  relier(ui_->mnuTailleNormale, texte, [texte] { texte->FixerTailleCaracteres(kTailleUsuelle); });
  for (QAction* action : {ui_->mnuAnnuler, ui_->mnuRetablir, ui_->mnuCouper, ui_->mnuCopier}) action->setEnabled(false);
  connect(texte, &QPlainTextEdit::undoAvailable, ui_->mnuAnnuler, &QAction::setEnabled);
  connect(texte, &QPlainTextEdit::redoAvailable, ui_->mnuRetablir, &QAction::setEnabled);
  connect(texte, &QPlainTextEdit::copyAvailable, ui_->mnuCopier, &QAction::setEnabled);
  connect(texte, &QPlainTextEdit::copyAvailable, ui_->mnuCouper, &QAction::setEnabled);
  connect(texte, &QPlainTextEdit::cursorPositionChanged, this, &frmSDI::MontrerPosition);
  connect(texte, &QPlainTextEdit::selectionChanged, this, &frmSDI::MontrerPosition);
  connect(texte, &EditTexte::Signale, this, &frmSDI::Dire);
  connect(texte, &EditTexte::Charge, this, [this](int pourcent) {
    if (pourcent < 100) Dire(QStringLiteral("Chargement... %1 %").arg(pourcent));
    else ui_->BarreDEtat->clearMessage();
  });
}

// The viewer has what reads and nothing that writes.
void frmSDI::PreparerLecteur() {
  for (QAction* action : {ui_->mnuNouveau, ui_->mnuEnregistrer, ui_->mnuEnregSous, ui_->mnuAnnuler, ui_->mnuRetablir,
                          ui_->mnuCouper, ui_->mnuColler, ui_->mnuRemplacer}) {
    action->setVisible(false);
    action->setEnabled(false);
  }
  ui_->BarreDOutils->clear();
  ui_->BarreDOutils->addActions({ui_->mnuOuvrir, ui_->mnuImprimer, ui_->mnuPDF});
  ui_->BarreDOutils->addSeparator();
  ui_->BarreDOutils->addActions({ui_->mnuCopier, ui_->mnuChercher, ui_->mnuAllerLigne});
  ui_->BarreDOutils->addActions({ui_->mnuPartiePrec, ui_->mnuPartieSuiv});
  disconnect(ui_->TexteEd, nullptr, ui_->mnuAnnuler, nullptr);
  disconnect(ui_->TexteEd, nullptr, ui_->mnuRetablir, nullptr);
  disconnect(ui_->TexteEd, nullptr, ui_->mnuCouper, nullptr);
  ui_->mnuRecents->menuAction()->setVisible(false);
  frappe_->hide();
  ui_->TexteEd->FixerLectureSeule(true);
}

// --- status ---

QString frmSDI::Nom() const { return fichier_.isEmpty() ? QStringLiteral("Sans nom") : QFileInfo(fichier_).fileName(); }

QString frmSDI::DossierDeDepart() const {
  return fichier_.isEmpty() ? QDir::currentPath() : QFileInfo(fichier_).absolutePath();
}

void frmSDI::MontrerTitre() {
  QString titre = Nom();
  if (parties_ > 1) titre += QStringLiteral(" (partie %1 sur %2)").arg(partie_ + 1).arg(parties_);
  setWindowTitle(titre + (genre_ == Genre::Lecteur ? QStringLiteral(" - Lecteur de Quelvar")
                                                   : QStringLiteral("[*] - Éditeur de Quelvar")));
  setWindowFilePath(fichier_);
  ui_->mnuRecharger->setEnabled(!fichier_.isEmpty());
  for (QAction* action : {ui_->mnuPartiePrec, ui_->mnuPartieSuiv}) action->setVisible(parties_ > 1);
  ui_->mnuPartiePrec->setEnabled(partie_ > 0);
  ui_->mnuPartieSuiv->setEnabled(partie_ + 1 < parties_);
}

void frmSDI::MontrerPosition() {
  const EditTexte& texte = *ui_->TexteEd;
  position_->setText(QStringLiteral("Ligne %1, position %2").arg(texte.Ligne()).arg(texte.Colonne()));
  const QTextCursor curseur = texte.textCursor();
  const int longueur = curseur.selectionEnd() - curseur.selectionStart();
  selection_->setText(longueur == 0 ? QString() : QStringLiteral("Sélection : %1").arg(longueur));
  frappe_->setText(texte.overwriteMode() ? QStringLiteral("RFP") : QStringLiteral("INS"));
}

void frmSDI::MontrerForme() {
  QString forme =
      formeTexte_.encodage == EncodageDuTexte::Utf8 ? QStringLiteral("UTF-8") : QStringLiteral("Windows-1252");
  forme += formeTexte_.fins == FinsDeLigne::CrLf ? QStringLiteral(", CR LF") : QStringLiteral(", LF");
  if (formeTexte_.finsMelangees) forme += QStringLiteral(" (fins mêlées)");
  forme_->setText(forme);
}

void frmSDI::Dire(const QString& phrase) { ui_->BarreDEtat->showMessage(phrase, kDureeDUnePhrase); }

// --- paper ---

void frmSDI::DemanderImpression() {
  const QString texte = QString::fromStdU16String(ui_->TexteEd->TexteComplet());
  if (!DemanderImpressionDuTexte(this, texte, Nom())) Dire(VersQt(kPasDImprimante));
}

void frmSDI::DemanderPdf() {
  const QFileInfo source(fichier_.isEmpty() ? Nom() : fichier_);
  const QString propose = DossierDeDepart() + u'/' + source.fileName() + QStringLiteral(".pdf");
  const QString texte = QString::fromStdU16String(ui_->TexteEd->TexteComplet());
  if (const std::optional<QString> ecrit = EnregistrerEnPdf(this, propose, texte, Nom()))
    Dire(QStringLiteral("Enregistré sous ") + QDir::toNativeSeparators(*ecrit));
}

// --- window ---

void frmSDI::changeEvent(QEvent* evenement) {
  QMainWindow::changeEvent(evenement);
  if (evenement->type() == QEvent::ActivationChange && isActiveWindow()) SurveillerLeDisque();
}

void frmSDI::closeEvent(QCloseEvent* evenement) {
  if (!Perdre()) {
    evenement->ignore();
    return;
  }
  ui_->TexteEd->document()->setModified(false);
  QMainWindow::closeEvent(evenement);
}

}  // namespace quelvar::forms
