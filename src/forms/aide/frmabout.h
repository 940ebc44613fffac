// About Quelvar: version, and what the system is made of.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"

namespace Ui {
class frmAbout;
}

namespace quelvar::forms {

class FrmAbout : public QDialog {
  Q_OBJECT
 public:
  explicit FrmAbout(Principal& principal);
  ~FrmAbout() override;

 private:
  std::unique_ptr<Ui::frmAbout> ui_;
};

void OuvrirAPropos(Principal& principal);

}  // namespace quelvar::forms
