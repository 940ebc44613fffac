// Files that are dropped on a window.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

#include "core/fichiers/fichiers.h"

namespace quelvar::forms {

// The first file that is dropped on one of the widgets goes to the function, once the drop itself is over.
class Depot : public QObject {
  Q_OBJECT
 public:
  Depot(const QList<QWidget*>& cibles, std::function<void(const Chemin&)> recevoir, QObject* parent);

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  std::function<void(const Chemin&)> recevoir_;
};

}  // namespace quelvar::forms
