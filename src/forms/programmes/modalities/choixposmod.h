// The choice of the questions that Posmod turns into modalities, for the factor analysis or for the regression.
#pragma once

#include <QListWidget>
#include <memory>

#include "forms/cadre/services.h"
#include "forms/pieces/brouillon.h"
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
  void Deplacer(const QListWidget& liste, Statut statut);
  void MontrerListes();
  void MontrerNombres();
  void ChangerCodesZero(bool sans);
  modalities::OptionsPosmod Options() const;
  void LancerPosmod();

  modalities::ModePosmod mode_;
  modalities::ChoixPrepare prepare_;
  std::unique_ptr<Ui::ChoixPosmod> ui_;
};

void OuvrirPosmod(Services& services);
void OuvrirPosmodRegression(Services& services);

}  // namespace quelvar::forms
