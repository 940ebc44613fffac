// The import of a spreadsheet: what is there, and the one option of the program.
#pragma once

#include <QDialog>
#include <memory>

#include "capture/presence.h"
#include "forms/cadre/principal.h"

namespace Ui {
class FImportCSV;
}

namespace quelvar::forms {

class FImportCSV : public QDialog {
  Q_OBJECT
 public:
  explicit FImportCSV(Principal& principal);
  ~FImportCSV() override;

 private:
  void MontrerAide();
  void LancerImport();

  Principal& principal_;
  capture::SourcesPresentes sources_;
  std::unique_ptr<Ui::FImportCSV> ui_;
};

// Finds which source files the generic has and opens the form for them.
void OuvrirImport(Principal& principal);

}  // namespace quelvar::forms
