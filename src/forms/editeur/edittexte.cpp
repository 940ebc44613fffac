#include "forms/editeur/edittexte.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <algorithm>

#include "forms/qt/policefixe.h"

namespace quelvar::forms {

namespace {

constexpr std::size_t kTete = std::size_t{1} << 18;   // characters shown at once
constexpr std::size_t kSuite = std::size_t{1} << 19;  // characters loaded in one pause

QString VersQString(std::u16string_view texte) {
  return QString::fromUtf16(texte.data(), static_cast<qsizetype>(texte.size()));
}

// Line ends as the rest of the program knows them.
std::u16string AvecLf(const QString& brut) {
  std::u16string texte(static_cast<std::size_t>(brut.size()), u'\0');
  std::transform(brut.cbegin(), brut.cend(), texte.begin(), [](QChar c) {
    return c == QChar::ParagraphSeparator || c == QChar::LineSeparator ? u'\n' : static_cast<char16_t>(c.unicode());
  });
  return texte;
}

}  // namespace

EditTexte::EditTexte(QWidget* parent) : TexteFixe(parent), regle_(new ReglePositions(*this)) {
  setTabChangesFocus(false);
  setUndoRedoEnabled(true);
  setCursorWidth(2);
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, [this] { ChargerSuite(kSuite); });
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, &EditTexte::MarquerLigne);
  FixerTailleCaracteres(kTailleUsuelle);
  MarquerLigne();
}

// --- loading ---

void EditTexte::Charger(std::u16string texte, EncodageDuTexte encodage) {
  pause_.stop();
  encodage_ = encodage;
  attente_ = std::move(texte);
  charge_ = 0;
  setUndoRedoEnabled(false);
  clear();
  if (attente_.empty()) {
    FinirChargement();
  } else {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    ChargerSuite(kTete);
    moveCursor(QTextCursor::Start);
  }
}

void EditTexte::ChargerSuite(std::size_t caracteres) {
  std::size_t fin = std::min(charge_ + caracteres, attente_.size());
  if (fin < attente_.size()) {
    const std::size_t saut = attente_.find(u'\n', fin);
    fin = saut == std::u16string::npos ? attente_.size() : saut + 1;
  }
  QTextCursor curseur(document());
  curseur.movePosition(QTextCursor::End);
  curseur.insertText(VersQString(std::u16string_view(attente_).substr(charge_, fin - charge_)));
  charge_ = fin;
  if (!EnChargement()) {
    FinirChargement();
    return;
  }
  pause_.start(0);
  emit Charge(static_cast<int>(charge_ * 100 / attente_.size()));
}

void EditTexte::FinirChargement() {
  attente_ = {};
  charge_ = 0;
  setReadOnly(lectureSeule_);
  if (lectureSeule_) setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setUndoRedoEnabled(!lectureSeule_);
  document()->setModified(false);
  emit Charge(100);
}

void EditTexte::AcheverChargement() {
  pause_.stop();
  while (EnChargement()) {
    ChargerSuite(attente_.size());
    pause_.stop();
  }
}

std::u16string EditTexte::TexteComplet() {
  AcheverChargement();
  return AvecLf(document()->toRawText());
}

void EditTexte::FixerLectureSeule(bool lectureSeule) {
  lectureSeule_ = lectureSeule;
  if (!EnChargement()) FinirChargement();
}

// --- typing and pasting ---

QString EditTexte::Admettre(const QString& texte) {
  QString net = texte.normalized(QString::NormalizationForm_C);
  net.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  net.replace(u'\r', u'\n');
  const QString admis = VersQString(CaracteresAdmis(net.toStdU16String(), encodage_));
  if (admis.count(u'?') > net.count(u'?'))
    emit Signale(QStringLiteral("Un caractère absent de la page de code est devenu « ? »"));
  return admis;
}

// What would make the text more than the box can hold.
bool EditTexte::Deborde(const QString& ajout) const {
  const Capacite capacite;
  Mesure mesure = MesurerTexte(ajout.toStdString());
  mesure.octets += static_cast<std::uintmax_t>(document()->characterCount());
  mesure.lignes += static_cast<std::size_t>(document()->blockCount());
  return !Contient(capacite, mesure);
}

bool EditTexte::canInsertFromMimeData(const QMimeData* source) const { return source->hasText() && !isReadOnly(); }

void EditTexte::insertFromMimeData(const QMimeData* source) {
  if (!canInsertFromMimeData(source)) return;
  const QString texte = source->text();
  if (Deborde(texte)) {
    emit Signale(QStringLiteral("Rien n'est collé : le texte dépasserait ce que l'éditeur peut tenir"));
    return;
  }
  insertPlainText(Admettre(texte));
  ensureCursorVisible();
}

QMimeData* EditTexte::createMimeDataFromSelection() const {
  // The base class would turn the no-break blanks into blanks.
  auto* copie = new QMimeData;
  copie->setText(QString::fromStdU16String(AvecLf(textCursor().selectedText())));
  return copie;
}

void EditTexte::keyPressEvent(QKeyEvent* evenement) {
  const bool commande = evenement->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (evenement->key() == Qt::Key_Insert && evenement->modifiers() == Qt::NoModifier && !isReadOnly()) {
    setOverwriteMode(!overwriteMode());
    emit cursorPositionChanged();
    return;
  }
  if ((evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) && !commande) {
    // With Shift the box would make a soft end of line, which no file has.
    QKeyEvent simple(evenement->type(), evenement->key(), Qt::NoModifier, evenement->text());
    TexteFixe::keyPressEvent(&simple);
    return;
  }
  const QString tape = evenement->text();
  if (!isReadOnly() && !tape.isEmpty() && tape[0].isPrint()) {
    const QString admis = Admettre(tape);
    if (admis != tape) {
      insertPlainText(admis);
      return;
    }
  }
  TexteFixe::keyPressEvent(evenement);
}

void EditTexte::inputMethodEvent(QInputMethodEvent* evenement) {
  if (evenement->commitString().isEmpty()) {
    TexteFixe::inputMethodEvent(evenement);
    return;
  }
  QInputMethodEvent admis(evenement->preeditString(), evenement->attributes());
  admis.setCommitString(Admettre(evenement->commitString()), evenement->replacementStart(),
                        evenement->replacementLength());
  TexteFixe::inputMethodEvent(&admis);
}

// --- view ---

int EditTexte::Ligne() const { return textCursor().blockNumber() + 1; }

int EditTexte::Colonne() const { return textCursor().positionInBlock() + 1; }

void EditTexte::AllerALigne(int ligne) {
  AcheverChargement();
  const int rang = std::clamp(ligne, 1, blockCount()) - 1;
  setTextCursor(QTextCursor(document()->findBlockByNumber(rang)));
  centerCursor();
}

void EditTexte::Montrer(const QTextCursor& selection) {
  const bool visible = viewport()->rect().contains(cursorRect(selection));
  setTextCursor(selection);
  if (!visible) centerCursor();
}

void EditTexte::FixerTailleCaracteres(int points) {
  constexpr int lisible = 6;        // points: smaller letters run into each other on a screen
  constexpr int enProjection = 32;  // points: a line is then wider than a screen
  FixerTaille(std::clamp(points, lisible, enProjection));
  DisposerRegle();
}

void EditTexte::MontrerRegle(bool visible) {
  regle_->setVisible(visible);
  DisposerRegle();
}

void EditTexte::DisposerRegle() {
  const int hauteur = RegleVisible() ? regle_->sizeHint().height() : 0;
  setViewportMargins(0, hauteur, 0, 0);
  const QRect place = contentsRect();
  regle_->setGeometry(place.left(), place.top(), viewport()->width(), hauteur);
}

void EditTexte::resizeEvent(QResizeEvent* evenement) {
  TexteFixe::resizeEvent(evenement);
  DisposerRegle();
}

void EditTexte::wheelEvent(QWheelEvent* evenement) {
  if (!(evenement->modifiers() & Qt::ControlModifier)) {
    TexteFixe::wheelEvent(evenement);
    return;
  }
  const int sens = evenement->angleDelta().y() > 0 ? 1 : -1;
  FixerTailleCaracteres(font().pointSize() + sens);
  evenement->accept();
}

// The line of the caret on a light ground.
void EditTexte::MarquerLigne() {
  QTextEdit::ExtraSelection ligne;
  QColor fond = palette().color(QPalette::Highlight);
  constexpr int presqueTransparent = 28;  // of 255: the selection, of the same colour, stands out
  fond.setAlpha(presqueTransparent);
  ligne.format.setBackground(fond);
  ligne.format.setProperty(QTextFormat::FullWidthSelection, true);
  ligne.cursor = textCursor();
  ligne.cursor.clearSelection();
  setExtraSelections({ligne});
}

}  // namespace quelvar::forms
