// A label that takes the keyboard: it turns key presses and the characters of dead keys into the keys of an entry.
#pragma once

#include <QLabel>

#include "capture/saisie/etat.h"

namespace quelvar::forms {

class ZoneDeFrappe : public QLabel {
  Q_OBJECT
 public:
  explicit ZoneDeFrappe(QWidget* parent = nullptr);

  QVariant inputMethodQuery(Qt::InputMethodQuery question) const override;

 signals:
  // `tenue`: the key is held down and repeats itself.
  void Frappe(quelvar::capture::Touche touche, bool tenue);
  // The key that goes to the list of records.
  void ListeDemandee();

 protected:
  bool event(QEvent* evenement) override;
  void inputMethodEvent(QInputMethodEvent* evenement) override;

 private:
  bool Traiter(const QKeyEvent& evenement);
  void Envoyer(const QString& texte, bool tenue);
};

}  // namespace quelvar::forms
