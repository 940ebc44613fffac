// The import of a spreadsheet: what is there, and the one option of the program.
#pragma once

#include <memory>

#include "capture/csv/import.h"
#include "capture/presence.h"
#include "forms/services/services.h"

namespace Ui {
class FImportCSV;
}

namespace quelvar::forms {

class FImportCSV : public Forme {
  Q_OBJECT
 public:
  explicit FImportCSV(Services& services);
  ~FImportCSV() override;

 private:
  capture::OptionsImportCsv Options() const;
  std::string Commande() const;
  void MontrerAide();
  void LancerImport();

  capture::SourcesPresentes sources_;
  std::unique_ptr<Ui::FImportCSV> ui_;
};

// Finds which source files the generic has and opens the form for them.
void OuvrirImport(Services& services);

}  // namespace quelvar::forms
