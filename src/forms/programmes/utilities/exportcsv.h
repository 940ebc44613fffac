// The data set for a spreadsheet: how its cells are separated, encoded and filled.
#pragma once

#include <memory>

#include "forms/services/services.h"
#include "utilities/exportcsv/exportcsv.h"

namespace Ui {
class ExportCsv;
}

namespace quelvar::forms {

class ExportCsv : public Forme {
  Q_OBJECT
 public:
  explicit ExportCsv(Services& services);
  ~ExportCsv() override;

 private:
  utilities::OptionsExportCsv Options() const;
  void Exporter();

  std::unique_ptr<Ui::ExportCsv> ui_;
};

// At level 1 the usual file is written at once.
void OuvrirExportCsv(Services& services);

}  // namespace quelvar::forms
