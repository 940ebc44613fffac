// What leaving a form without finishing does: by its button, by Escape or by the cross of the window. A form that the
// program closes is not left.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <functional>

#include "forms/cadre/principal.h"

namespace quelvar::forms {

class Abandon : public QObject {
 public:
  // Belongs to the form; the program runs once the form is gone.
  Abandon(QDialog& forme, QPushButton& quitter, Principal& principal,
          const std::function<void(const Contexte&)>& programme);

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  bool parLeProgramme_ = false;
};

}  // namespace quelvar::forms
