// About Quelvar: version, and what the system is made of.
#pragma once

#include <memory>

#include "forms/services/services.h"

namespace Ui {
class frmAbout;
}

namespace quelvar::forms {

class FrmAbout : public Forme {
  Q_OBJECT
 public:
  explicit FrmAbout(Services& services);
  ~FrmAbout() override;

 private:
  std::unique_ptr<Ui::frmAbout> ui_;
};

void OuvrirAPropos(Services& services);

}  // namespace quelvar::forms
