// The choice of the questions that Posmod turns into modalities, for the factor analysis or for the regression.
#pragma once

#include <memory>

#include "forms/pieces/listequestions.h"
#include "forms/services/brouillon.h"
#include "forms/services/services.h"
#include "modalities/creation/posmod.h"

namespace Ui {
class ChoixPosmod;
}

namespace quelvar::forms {

class ChoixPosmod : public Forme {
  Q_OBJECT
 public:
  ChoixPosmod(Services& services, modalities::ModePosmod mode, modalities::ChoixPrepare prepare, Brouillon rapport);
  ~ChoixPosmod() override;

 private:
  void AdapterALaRegression();
  void AlignerBoutons();
  void RelierListes();
  void RelierOptions();
  void MontrerNombres();
  void ChangerCodesZero(bool sans);
  modalities::OptionsPosmod Options() const;
  void LancerPosmod();

  modalities::ModePosmod mode_;
  modalities::ChoixPrepare prepare_;
  std::unique_ptr<Ui::ChoixPosmod> ui_;
  ListesDeQuestions* listes_ = nullptr;
};

void OuvrirPosmod(Services& services);
void OuvrirPosmodRegression(Services& services);

}  // namespace quelvar::forms
