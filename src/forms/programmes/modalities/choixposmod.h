// The choice of the questions that Posmod turns into modalities, for the factor analysis or for the regression.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <memory>

#include "forms/cadre/principal.h"
#include "modalities/creation/posmod.h"

namespace Ui {
class ChoixPosmod;
}

namespace quelvar::forms {

class ChoixPosmod : public QDialog {
  Q_OBJECT
 public:
  ChoixPosmod(Principal& principal, modalities::ModePosmod mode, modalities::ChoixPrepare prepare);
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

  Principal& principal_;
  Contexte contexte_;  // of the generic that the form was opened on
  modalities::ModePosmod mode_;
  modalities::ChoixPrepare prepare_;
  std::unique_ptr<Ui::ChoixPosmod> ui_;
};

void OuvrirPosmod(Principal& principal);
void OuvrirPosmodRegression(Principal& principal);

}  // namespace quelvar::forms
