#include "forms/pieces/clavier.h"

#include <QShortcut>

namespace quelvar::forms {

void RelierTouches(QWidget& controle, std::initializer_list<Qt::Key> touches, const std::function<void()>& action) {
  for (const Qt::Key touche : touches) {
    auto* const raccourci = new QShortcut(touche, &controle);
    raccourci->setContext(Qt::WidgetShortcut);
    QObject::connect(raccourci, &QShortcut::activated, &controle, action);
  }
}

}  // namespace quelvar::forms
