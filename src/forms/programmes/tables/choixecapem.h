// "Choix pour le PEM": the options of the table analysis.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"
#include "tables/ecapem.h"

namespace Ui {
class ChoixEcapem;
}

namespace quelvar::forms {

class ChoixEcapem : public QDialog {
  Q_OBJECT
 public:
  explicit ChoixEcapem(Principal& principal);
  ~ChoixEcapem() override;

 private:
  void MontrerEtat();
  tables::OptionsEcapem Options() const;
  void LancerAnalyse();

  Principal& principal_;
  std::unique_ptr<Ui::ChoixEcapem> ui_;
};

void OuvrirChoixEcapem(Principal& principal);

}  // namespace quelvar::forms
