#include "forms/texte/regle.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <cmath>

#include "forms/qt/policefixe.h"

namespace quelvar::forms {

namespace {

// Heights as shares of that of a line of the text: the numbers need their own height and room for the ticks under them.
constexpr double kHauteurDeLaRegle = 1.35;
constexpr double kCorpsDesNombres = 0.85;
// Where the ticks begin, as a share of the ruler from its top: those of ten columns are the longest.
constexpr double kHautDesDizaines = 0.60;
constexpr double kHautDesCinquaines = 0.70;
constexpr double kHautDesUnites = 0.85;

double HautDuTrait(int colonne) {
  return colonne % 10 == 0 ? kHautDesDizaines : colonne % 5 == 0 ? kHautDesCinquaines : kHautDesUnites;
}

}  // namespace

ReglePositions::ReglePositions(QPlainTextEdit& texte) : QWidget(&texte), texte_(texte) {
  setObjectName(QStringLiteral("Regle"));
  setToolTip(QStringLiteral("Positions dans la ligne ; celle du curseur est marquée"));
  const auto repeindre = [this] { update(); };
  connect(&texte, &QPlainTextEdit::cursorPositionChanged, this, repeindre);
  connect(texte.horizontalScrollBar(), &QScrollBar::valueChanged, this, repeindre);
}

QSize ReglePositions::sizeHint() const {
  return {0, static_cast<int>(std::ceil(QFontMetricsF(texte_.font()).height() * kHauteurDeLaRegle))};
}

void ReglePositions::paintEvent(QPaintEvent*) {
  QPainter pinceau(this);
  const QPalette& couleurs = texte_.palette();
  pinceau.fillRect(rect(), couleurs.color(QPalette::Window));
  QFont police = texte_.font();
  const qreal largeur = LargeurDeColonne(QFontMetricsF(police));
  const qreal marge = texte_.document()->documentMargin() - texte_.horizontalScrollBar()->value();
  const int premiere = std::max(1, static_cast<int>((-marge) / largeur));
  constexpr int debord = 3;  // columns that a number reaches over
  const int derniere = static_cast<int>((width() - marge) / largeur) + debord;
  const int caret = texte_.textCursor().positionInBlock() + 1;
  const auto gauche = [&](int colonne) { return marge + (colonne - 1) * largeur; };

  pinceau.fillRect(QRectF(gauche(caret), 0, largeur, height()), couleurs.color(QPalette::Highlight));
  police.setPointSizeF(police.pointSizeF() * kCorpsDesNombres);
  pinceau.setFont(police);
  const QFontMetricsF mesures(police);
  for (int colonne = premiere; colonne <= derniere; ++colonne) {
    const QColor couleur = couleurs.color(colonne == caret ? QPalette::HighlightedText : QPalette::WindowText);
    const qreal milieu = gauche(colonne) + largeur / 2;
    const qreal haut = height() * HautDuTrait(colonne);
    pinceau.setPen(couleur);
    pinceau.drawLine(QPointF(milieu, haut), QPointF(milieu, height() - 1));
    if (colonne % 10 != 0) continue;
    const QString nombre = QString::number(colonne);
    pinceau.setPen(couleurs.color(QPalette::WindowText));
    pinceau.drawText(QPointF(milieu - mesures.horizontalAdvance(nombre) / 2, mesures.ascent()), nombre);
  }
  pinceau.setPen(couleurs.color(QPalette::Mid));
  pinceau.drawLine(0, height() - 1, width(), height() - 1);
}

}  // namespace quelvar::forms
