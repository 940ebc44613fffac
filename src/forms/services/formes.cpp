#include "forms/services/formes.h"

#include <QApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "forms/qt/ecran.h"
#include "forms/qt/lettres.h"

namespace quelvar::forms {

void Formes::Presenter(Forme& forme) {
  if (std::none_of(ouvertes_.begin(), ouvertes_.end(), [&](const auto& f) { return f == &forme; })) {
    ouvertes_.append(&forme);
    forme.installEventFilter(this);
    forme.ensurePolished();
    if (!forme.testAttribute(Qt::WA_Resized)) forme.adjustSize();
    NommerLesControles(forme);
    TenirLesLettres(forme);
    TenirDansLEcran(forme);  // bars, if any, come before the controls are seen
  }
  forme.show();
  TenirDansLEcran(forme);
  forme.raise();
  forme.activateWindow();
}

bool Formes::Fermer(Forme& forme) {
  if (!forme.PeutFermer()) return false;
  forme.close();
  return true;
}

bool Formes::PeuventFermer() const {
  const QList<QPointer<Forme>> ouvertes = ouvertes_;
  return std::all_of(ouvertes.begin(), ouvertes.end(),
                     [](const QPointer<Forme>& forme) { return forme.isNull() || forme->PeutFermer(); });
}

bool Formes::Fermer() {
  if (!PeuventFermer()) return false;
  FermerSansDemander();
  return true;
}

void Formes::FermerSansDemander() {
  const QList<QPointer<Forme>> ouvertes = ouvertes_;
  for (const QPointer<Forme>& forme : ouvertes)
    if (forme) forme->close();
}

bool Formes::LaisserLeTravail() {
  if (!PeuventFermer()) return false;
  const QList<QPointer<Forme>> ouvertes = ouvertes_;
  for (const QPointer<Forme>& forme : ouvertes)
    if (forme && forme->ATravail()) forme->close();
  return true;
}

void Formes::FermerCellesQuiPeuvent() {
  const QList<QPointer<Forme>> ouvertes = ouvertes_;
  for (const QPointer<Forme>& forme : ouvertes)
    if (forme) Fermer(*forme);
}

// A form may be closed by a handler of its own that goes on behind a box or a run. Both spin the event loop: a closed
// form is deleted from the outermost loop only, where no handler is on its way.
void Formes::SupprimerFermees() {
  constexpr int patience = 200;  // milliseconds
  if (fermees_.isEmpty()) return;
  if (retenues_ > 0 || thread()->loopLevel() > 1 || QApplication::activeModalWidget() != nullptr ||
      QApplication::activePopupWidget() != nullptr) {
    QTimer::singleShot(patience, this, &Formes::SupprimerFermees);
    return;
  }
  for (const QPointer<Forme>& forme : std::exchange(fermees_, {})) delete forme.data();
}

bool Formes::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() == QEvent::LayoutRequest) {  // what comes up in a form may make it larger than the screen
    QTimer::singleShot(0, objet, [forme = qobject_cast<Forme*>(objet)] {
      if (forme != nullptr && forme->isVisible() && DepasseLEcran(*forme)) TenirDansLEcran(*forme);
    });
  }
  if (evenement->type() == QEvent::Hide && !evenement->spontaneous()) {
    auto* forme = qobject_cast<Forme*>(objet);
    if (forme != nullptr && ouvertes_.removeAll(forme) > 0) {
      fermees_.append(forme);
      QTimer::singleShot(0, this, &Formes::SupprimerFermees);
    }
  }
  return QObject::eventFilter(objet, evenement);
}

}  // namespace quelvar::forms
