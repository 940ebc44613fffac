// First use: where the data are to be kept, and the name of the generic.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"

namespace Ui {
class Prem;
}

namespace quelvar::forms {

class Prem : public QDialog {
  Q_OBJECT
 public:
  explicit Prem(Principal& principal);
  ~Prem() override;

 private:
  void MontrerSuite();
  void CreerRepertoire();
  void EnregistrerRepertoire();
  void EnregistrerGenerique();

  Principal& principal_;
  std::unique_ptr<Ui::Prem> ui_;
  QString repertoire_;  // once registered
  bool generiqueDonne_ = false;
};

void OuvrirPrem(Principal& principal);

}  // namespace quelvar::forms
