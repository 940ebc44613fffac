// The import of a dBase file, a table or a Burt table: what is there, and the options.
#pragma once

#include <QDialog>
#include <memory>

#include "capture/presence.h"
#include "forms/cadre/principal.h"

namespace Ui {
class FImport;
}

namespace quelvar::forms {

class FImport : public QDialog {
  Q_OBJECT
 public:
  explicit FImport(Principal& principal);
  ~FImport() override;

 private:
  void LancerImport();
  void ChoisirFichier();

  Principal& principal_;
  std::unique_ptr<Ui::FImport> ui_;
};

}  // namespace quelvar::forms
