// What leaving a form without finishing does: by its button, by Escape or by the cross of the window. A form that the
// program closes is not left.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <functional>

namespace quelvar {

class Abandon : public QObject {
 public:
  // Belongs to the form.
  Abandon(QDialog& forme, QPushButton& quitter, std::function<void()> effet);

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  std::function<void()> effet_;
  bool parLeProgramme_ = false;
};

}  // namespace quelvar
