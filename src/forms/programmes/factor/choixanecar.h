// "Choix des parmètres de l'analyse factorielle": the options of the factors and of the classification behind them.
#pragma once

#include <memory>

#include "factor/analyse/anecar.h"
#include "forms/programmes/factor/frmsitrie.h"
#include "forms/services/brouillon.h"
#include "forms/services/services.h"

namespace Ui {
class ChoixAnecar;
}

namespace quelvar::forms {

class ChoixAnecar : public Forme {
  Q_OBJECT
 public:
  // `rapport` is that of the preparation, which leaving shows.
  ChoixAnecar(Services& services, Brouillon rapport);
  ~ChoixAnecar() override;

 private:
  void RelierEditions();
  void RelierDetails();
  void MontrerEdition();
  void MontrerSeuils();
  factor::OptionsAnecar Options() const;
  void LancerAnalyse();

  std::unique_ptr<Ui::ChoixAnecar> ui_;
  frmSiTrié* siTrie_ = nullptr;
};

// At level 1 runs the analysis at once.
void OuvrirAnecar(Services& services);

}  // namespace quelvar::forms
