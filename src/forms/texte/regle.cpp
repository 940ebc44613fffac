#include "forms/texte/regle.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <cmath>

namespace quelvar::forms {

ReglePositions::ReglePositions(QPlainTextEdit& texte) : QWidget(&texte), texte_(texte) {
  setObjectName(QStringLiteral("Regle"));
  setToolTip(QStringLiteral("Positions dans la ligne ; celle du curseur est marquée"));
  const auto repeindre = [this] { update(); };
  connect(&texte, &QPlainTextEdit::cursorPositionChanged, this, repeindre);
  connect(texte.horizontalScrollBar(), &QScrollBar::valueChanged, this, repeindre);
}

QSize ReglePositions::sizeHint() const {
  return {0, static_cast<int>(std::ceil(QFontMetricsF(texte_.font()).height() * 1.35))};
}

void ReglePositions::paintEvent(QPaintEvent*) {
  QPainter pinceau(this);
  const QPalette& couleurs = texte_.palette();
  pinceau.fillRect(rect(), couleurs.color(QPalette::Window));
  QFont police = texte_.font();
  const qreal largeur = QFontMetricsF(police).horizontalAdvance(QString(100, u'0')) / 100;
  const qreal marge = texte_.document()->documentMargin() - texte_.horizontalScrollBar()->value();
  const int premiere = std::max(1, static_cast<int>((-marge) / largeur));
  const int derniere = static_cast<int>((width() - marge) / largeur) + 3;
  const int caret = texte_.textCursor().positionInBlock() + 1;
  const auto gauche = [&](int colonne) { return marge + (colonne - 1) * largeur; };

  pinceau.fillRect(QRectF(gauche(caret), 0, largeur, height()), couleurs.color(QPalette::Highlight));
  police.setPointSizeF(police.pointSizeF() * 0.85);
  pinceau.setFont(police);
  const QFontMetricsF mesures(police);
  for (int colonne = premiere; colonne <= derniere; ++colonne) {
    const QColor couleur = couleurs.color(colonne == caret ? QPalette::HighlightedText : QPalette::WindowText);
    const qreal milieu = gauche(colonne) + largeur / 2;
    const qreal haut = height() * (colonne % 10 == 0 ? 0.60 : colonne % 5 == 0 ? 0.70 : 0.85);
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
