// The import of a dBase file, a table or a Burt table: what is there, and the options.
#pragma once

#include <memory>
#include <string>

#include "capture/burt/import.h"
#include "capture/presence.h"
#include "forms/services/services.h"

namespace Ui {
class FImport;
}

namespace quelvar::forms {

class FImport : public Forme {
  Q_OBJECT
 public:
  explicit FImport(Services& services);
  ~FImport() override;

 private:
  capture::OptionsImportBurt OptionsBurt() const;
  std::string Commande() const;
  void LancerImport();
  void ChoisirFichier();

  std::unique_ptr<Ui::FImport> ui_;
};

}  // namespace quelvar::forms
