// "Choix pour le PEM": the options of the table analysis.
#pragma once

#include <memory>

#include "forms/services/services.h"
#include "tables/ecapem.h"

namespace Ui {
class ChoixEcapem;
}

namespace quelvar::forms {

class ChoixEcapem : public Forme {
  Q_OBJECT
 public:
  explicit ChoixEcapem(Services& services);
  ~ChoixEcapem() override;

 private:
  void MontrerEtat();
  tables::OptionsEcapem Options() const;
  void LancerAnalyse();

  std::unique_ptr<Ui::ChoixEcapem> ui_;
};

void OuvrirChoixEcapem(Services& services);

}  // namespace quelvar::forms
