// What every window program of ours and the tests of the forms share: names, French, the place of the help, and that
// no handler ends the program.
#pragma once

#include <QApplication>
#include <QString>

#include "core/panne/erreur.h"

namespace quelvar::forms {

// The last resort for what a handler lets escape: nothing of it reaches the loop of events, which would end the
// program. It is told in a box once the event is over, one box at a time.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* objet, QEvent* evenement) override;

 private:
  void DireEnsuite(const Erreur& erreur);

  bool dite_ = false;  // a box waits or is on the screen
};

// Called once, when the application object exists.
void PreparerApplication();

// The directory of QuelvarAide.html, beside the executable or installed; empty when there is none.
QString DossierAide();

}  // namespace quelvar::forms
