// What a user does in the window of the factor plane, and sees there.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "forms/images/vuedessin.h"
#include "forms/pilote.h"
#include "forms/programmes/factor/graphe3/graphe3.h"

namespace essai {

inline VueDessin& Image(const QWidget& forme) { return Bureau::Dans<VueDessin>(forme, "Image"); }
inline QString Information(const QWidget& forme) {
  return Bureau::Dans<QPlainTextEdit>(forme, "Information").toPlainText();
}
// What is typed counts with Return.
inline void TaperEtRetour(const QWidget& forme, const char* champ, const char* texte) {
  Taper(forme, champ, QString::fromUtf8(texte));
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, champ), Qt::Key_Return);
}

}  // namespace essai
