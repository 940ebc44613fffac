#include "forms/texte/textefixe.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <functional>

#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

// A pane over the text that shows a part of it where it stood before the scrolling.
class Volet : public QWidget {
 public:
  Volet(QWidget* parent, std::function<void(QPainter&)> peindre) : QWidget(parent), peindre_(std::move(peindre)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setVisible(false);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter peintre(this);
    peintre.fillRect(rect(), palette().brush(QPalette::AlternateBase));
    peindre_(peintre);
  }

 private:
  std::function<void(QPainter&)> peindre_;
};

QString VersQt16(const std::u16string& texte) { return QString::fromStdU16String(texte); }

// What the program says: names in other scripts stand as they are on the screen, and are "?" when the text is saved.
QString EcranDe(std::string_view phrases) {
  return AvecEtrangers(phrases) ? VersQt(phrases).remove(u'\r') : VersQt16(DecoderTexte(phrases).texte);
}

}  // namespace

TexteFixe::TexteFixe(QWidget* parent)
    : QPlainTextEdit(parent),
      voletLignes_(new Volet(this, [this](QPainter& peintre) { PeindreLignes(peintre); })),
      voletColonnes_(new Volet(this, [this](QPainter& peintre) { PeindreColonnes(peintre); })) {
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  FixerTaille(kTailleUsuelle);
  connect(this, &QPlainTextEdit::updateRequest, voletLignes_, qOverload<>(&QWidget::update));
  connect(this, &QPlainTextEdit::updateRequest, voletColonnes_, qOverload<>(&QWidget::update));
}

void TexteFixe::PoserTexte(std::string_view octets, bool alaFin) {
  const DocumentTexte contenu = DecoderTexte(octets);
  forme_ = contenu.forme;
  setPlainText(VersQt16(contenu.texte));
  moveCursor(alaFin ? QTextCursor::End : QTextCursor::Start);
}

void TexteFixe::PoserPhrases(std::string_view texte) {
  PoserTexte(NomMontrable(texte), true);
  if (!AvecEtrangers(texte)) return;
  setPlainText(EcranDe(texte));
  moveCursor(QTextCursor::End);
}

void TexteFixe::AjouterTexte(std::string_view texte) {
  moveCursor(QTextCursor::End);
  insertPlainText(EcranDe(texte));
  moveCursor(QTextCursor::End);
}

std::string TexteFixe::Octets() const {
  QString texte = document()->toRawText();  // toPlainText would turn the no-break blanks into blanks
  texte.replace(QChar::ParagraphSeparator, u'\n');
  texte.replace(QChar::LineSeparator, u'\n');
  return EncoderTexte(texte.toStdU16String(), forme_);
}

void TexteFixe::FixerTaille(int points) {
  const QFont police = PoliceDesTextes(points);
  setFont(police);
  // A tab is one position of the file like any other character.
  setTabStopDistance(LargeurDeColonne(QFontMetricsF(police)));
}

void TexteFixe::FigerLignes(int lignes) {
  lignesFigees_ = lignes;
  PlacerVolets();
}

void TexteFixe::FigerColonnes(int colonnes) {
  colonnesFigees_ = colonnes;
  PlacerVolets();
}

void TexteFixe::resizeEvent(QResizeEvent* evenement) {
  QPlainTextEdit::resizeEvent(evenement);
  PlacerVolets();
}

void TexteFixe::changeEvent(QEvent* evenement) {
  QPlainTextEdit::changeEvent(evenement);
  if (evenement->type() == QEvent::FontChange) PlacerVolets();
}

int TexteFixe::LargeurFigee() const {
  return qRound(document()->documentMargin()) + fontMetrics().horizontalAdvance(QString(colonnesFigees_, u'0'));
}

void TexteFixe::PlacerVolets() {
  if (voletLignes_ == nullptr || voletColonnes_ == nullptr) return;  // events of the base class come before
  const QRect vue = viewport()->geometry();
  const QTextBlock premier = document()->firstBlock();
  const int hauteur = qRound(document()->documentMargin() + lignesFigees_ * blockBoundingRect(premier).height());
  voletLignes_->setGeometry(vue.x(), vue.y(), vue.width(), hauteur);
  voletLignes_->setVisible(lignesFigees_ > 0);
  voletColonnes_->setGeometry(vue.x(), vue.y(), LargeurFigee(), vue.height());
  voletColonnes_->setVisible(colonnesFigees_ > 0);
  voletLignes_->raise();
}

void TexteFixe::PeindreLignes(QPainter& peintre) const {
  peintre.setFont(font());
  const int gauche = qRound(document()->documentMargin()) - horizontalScrollBar()->value();
  int haut = qRound(document()->documentMargin());
  QTextBlock bloc = document()->firstBlock();
  for (int i = 0; i < lignesFigees_ && bloc.isValid(); ++i, bloc = bloc.next()) {
    peintre.drawText(gauche, haut + fontMetrics().ascent(), bloc.text());
    haut += qRound(blockBoundingRect(bloc).height());
  }
}

void TexteFixe::PeindreColonnes(QPainter& peintre) const {
  peintre.setFont(font());
  const int gauche = qRound(document()->documentMargin());
  for (QTextBlock bloc = firstVisibleBlock(); bloc.isValid(); bloc = bloc.next()) {
    const QRectF place = blockBoundingGeometry(bloc).translated(contentOffset());
    if (place.top() > viewport()->height()) break;
    peintre.drawText(gauche, qRound(place.top()) + fontMetrics().ascent(), bloc.text().left(colonnesFigees_));
  }
}

}  // namespace quelvar::forms
