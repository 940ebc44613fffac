#include "forms/publication/avisperimes.h"

#include <QRegularExpression>
#include <algorithm>

#include "forms/cadre/menus/entrees.h"

namespace quelvar::forms {

QString SansAvisPerimes(const QString& page) {
  static const QRegularExpression avis(QStringLiteral("<p class=\"etat\" data-menu=\"(\\w+)\">.*?</p>\\n?"),
                                       QRegularExpression::DotMatchesEverythingOption);
  const auto entrees = EntreesDeProgrammes();
  QString nette;
  qsizetype copie = 0;
  for (auto trouves = avis.globalMatch(page); trouves.hasNext();) {
    const QRegularExpressionMatch trouve = trouves.next();
    const bool existe = std::any_of(entrees.begin(), entrees.end(), [&](const EntreeDeProgramme& entree) {
      return trouve.captured(1) == QString::fromLatin1(entree.action);
    });
    if (!existe) continue;
    nette += QStringView(page).sliced(copie, trouve.capturedStart() - copie);
    copie = trouve.capturedEnd();
  }
  return nette + page.sliced(copie);
}

}  // namespace quelvar::forms
