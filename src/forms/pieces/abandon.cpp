#include "forms/pieces/abandon.h"

#include <QEvent>

namespace quelvar::forms {

Abandon::Abandon(QDialog& forme, QPushButton& quitter, Principal& principal,
                 const std::function<void(const Contexte&)>& programme)
    : QObject(&forme) {
  forme.installEventFilter(this);
  connect(&quitter, &QPushButton::clicked, &forme, &QDialog::reject);
  connect(&forme, &QDialog::rejected, this, [this, &principal, programme] {
    if (parLeProgramme_) return;
    QMetaObject::invokeMethod(
        &principal, [&principal, programme] { principal.Lancer(programme); }, Qt::QueuedConnection);
  });
}

bool Abandon::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() == QEvent::Close) parLeProgramme_ = !evenement->spontaneous();
  return QObject::eventFilter(objet, evenement);
}

}  // namespace quelvar::forms
