// First use: where the data are to be kept, and the name of the generic.
#pragma once

#include <memory>

#include "forms/services/services.h"

namespace Ui {
class Prem;
}

namespace quelvar::forms {

class Prem : public Forme {
  Q_OBJECT
 public:
  explicit Prem(Services& services);
  ~Prem() override;
  void reject() override;

 private:
  void MontrerSuite();
  void CreerRepertoire();
  void EnregistrerRepertoire();
  bool EmporterLeGenerique(const Chemin& initialisation);
  void EnregistrerGenerique();

  std::unique_ptr<Ui::Prem> ui_;
  QString repertoire_;  // once registered
  bool generiqueDonne_ = false;
};

void OuvrirPrem(Services& services);

}  // namespace quelvar::forms
