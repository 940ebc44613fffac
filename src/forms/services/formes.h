// The forms that are open beside the main one: which, how they come to the screen, when they close, and when a closed
// one may be deleted.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include "forms/services/forme.h"

namespace quelvar::forms {

class Formes : public QObject {
  Q_OBJECT
 public:
  // Shows the form, inside the screen, and gives it the focus.
  void Presenter(Forme& forme);
  // The open form of that class, or nullptr.
  template <class F>
  F* Ouverte() const {
    for (const QPointer<Forme>& ouverte : ouvertes_)
      if (auto* forme = qobject_cast<F*>(ouverte.data()); forme != nullptr && forme->isVisible()) return forme;
    return nullptr;
  }
  // Closes one form; false when the user keeps its work.
  bool Fermer(Forme& forme);
  // Asks every form that holds work; true when all may close.
  bool PeuventFermer() const;
  // Closes all of them, or none when the user keeps the work of one.
  bool Fermer();
  void FermerSansDemander();
  // Closes those that hold work, once the user has given all of it up; false when he keeps some, and none closes.
  bool LaisserLeTravail();
  // Closes those whose work the user does not keep.
  void FermerCellesQuiPeuvent();

  // Between the two no closed form is deleted: its own handler may be what goes on behind them.
  void Retenir() { ++retenues_; }
  void Relacher() { --retenues_; }

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void SupprimerFermees();

  QList<QPointer<Forme>> ouvertes_;
  QList<QPointer<Forme>> fermees_;
  int retenues_ = 0;
};

}  // namespace quelvar::forms
