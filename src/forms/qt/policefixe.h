// The fonts of what stands in columns, and the width of a column.
#pragma once

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>

namespace quelvar::forms {

// That of lists.
inline QFont PoliceFixe() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

// That of reports and texts, on the screen and on paper.
inline constexpr int kTailleUsuelle = 10;  // points, when nobody chooses
inline QFont PoliceDesTextes(int points = kTailleUsuelle) {
  QFont police(QStringLiteral("Courier New"), points);
  police.setStyleHint(QFont::TypeWriter);
  police.setFixedPitch(true);
  return police;
}

// Taken from many columns, since the advance of a single one may be rounded.
inline qreal LargeurDeColonne(const QFontMetricsF& mesures) {
  constexpr int beaucoup = 100;
  return mesures.horizontalAdvance(QString(beaucoup, u'0')) / beaucoup;
}

}  // namespace quelvar::forms
