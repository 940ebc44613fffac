#include "forms/abandon.h"

#include <QEvent>

namespace quelvar {

Abandon::Abandon(QDialog& forme, QPushButton& quitter, std::function<void()> effet)
    : QObject(&forme), effet_(std::move(effet)) {
  forme.installEventFilter(this);
  connect(&quitter, &QPushButton::clicked, &forme, &QDialog::reject);
  connect(&forme, &QDialog::rejected, this, [this] {
    if (!parLeProgramme_) effet_();
  });
}

bool Abandon::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() == QEvent::Close) parLeProgramme_ = !evenement->spontaneous();
  return QObject::eventFilter(objet, evenement);
}

}  // namespace quelvar
