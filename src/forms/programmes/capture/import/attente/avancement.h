// A box that tells how far a long work is, and lets the user give it up. It comes only when the work is slow.
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QString>

namespace quelvar::forms {

class Avancement {
 public:
  Avancement(QWidget* parent, const QString& titre);

  // Shows a share of 100 and lets the window paint; false once the user has given up.
  bool Montrer(const QString& texte, int pourcent);
  void Cacher() { boite_.hide(); }

 private:
  QProgressDialog boite_;
  QElapsedTimer depuis_;
  QElapsedTimer peinte_;
};

}  // namespace quelvar::forms
