#include "forms/aide/pages.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <algorithm>
#include <utility>

#include "forms/aide/documents.h"

namespace quelvar::forms {

namespace {

const EntreeDAide* EntreeDe(const QString& action) {
  const auto entrees = EntreesDAide();
  const auto trouvee = std::find_if(entrees.begin(), entrees.end(),
                                    [&](const EntreeDAide& e) { return action == QString::fromUtf8(e.nom); });
  return trouvee == entrees.end() ? nullptr : &*trouvee;
}

}  // namespace

// Reads each document once.
PagesDAide::PagesDAide(QString dossier, std::function<bool(const QUrl&)> ouvrir,
                       std::function<void(const QString&)> refus)
    : dossier_(std::move(dossier)), ouvrir_(std::move(ouvrir)), refus_(std::move(refus)) {
  if (dossier_.isEmpty()) return;
  const QDir pagesDir(dossier_);
  QHash<QString, QByteArray> pages;
  for (const EntreeDAide& entree : EntreesDAide()) {
    const QString document = QString::fromUtf8(entree.document);
    bool existe = pagesDir.exists(document);
    if (existe && *entree.ancre != '\0') {
      if (!pages.contains(document)) {
        QFile page(pagesDir.filePath(document));
        pages[document] = page.open(QIODevice::ReadOnly) ? page.readAll() : QByteArray();
      }
      existe = pages[document].contains(QByteArray("id=\"") + entree.ancre + '"');
    }
    if (existe) presentes_.insert(QString::fromUtf8(entree.nom));
  }
}

void PagesDAide::Ouvrir(const QString& entree) const {
  const EntreeDAide* page = EntreeDe(entree);
  if (page == nullptr) return;
  QUrl adresse = QUrl::fromLocalFile(QDir(dossier_).absoluteFilePath(QString::fromUtf8(page->document)));
  if (*page->ancre != '\0') adresse.setFragment(QString::fromUtf8(page->ancre));
  if (!ouvrir_(adresse)) refus_(adresse.toDisplayString());
}

}  // namespace quelvar::forms
