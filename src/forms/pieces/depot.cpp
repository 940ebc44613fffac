#include "forms/pieces/depot.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

QString FichierDe(const QDropEvent& depot) {
  for (const QUrl& adresse : depot.mimeData()->urls())
    if (adresse.isLocalFile() && QFileInfo(adresse.toLocalFile()).isFile()) return adresse.toLocalFile();
  return {};
}

}  // namespace

Depot::Depot(const QList<QWidget*>& cibles, std::function<void(const Chemin&)> recevoir, QObject* parent)
    : QObject(parent), recevoir_(std::move(recevoir)) {
  for (QWidget* cible : cibles) {
    cible->setAcceptDrops(true);
    cible->installEventFilter(this);
  }
}

bool Depot::eventFilter(QObject* objet, QEvent* evenement) {
  const QEvent::Type genre = evenement->type();
  if (genre != QEvent::DragEnter && genre != QEvent::DragMove && genre != QEvent::Drop)
    return QObject::eventFilter(objet, evenement);
  auto* depot = static_cast<QDropEvent*>(evenement);
  const QString fichier = FichierDe(*depot);
  if (fichier.isEmpty()) {
    evenement->ignore();
    return true;
  }
  depot->acceptProposedAction();
  // The program that the file comes from waits for the end of the drop: no box opens within it.
  if (genre == QEvent::Drop) QTimer::singleShot(0, this, [this, fichier] { recevoir_(CheminDepuisQt(fichier)); });
  return true;
}

}  // namespace quelvar::forms
