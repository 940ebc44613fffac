// Choice of the questions of interest.
#pragma once

#include <memory>

#include "core/enquete/posfile.h"
#include "forms/cadre/services.h"
#include "modalities/creation/choix.h"
#include "regression/varint/varint.h"

class QListWidget;

namespace Ui {
class ChoixVarInt;
}

namespace quelvar::forms {

class ChoixVarInt : public Forme {
  Q_OBJECT
 public:
  ChoixVarInt(Services& services, FichierPos pos);
  ~ChoixVarInt() override;

 private:
  regression::OptionsVarint Options() const;
  void Deplacer(const QListWidget& liste, Statut statut);
  void DeplacerTout(Statut statut);
  void MontrerListes();
  void LancerVarint();

  FichierPos pos_;
  modalities::ChoixQuestions choix_;
  std::unique_ptr<Ui::ChoixVarInt> ui_;
};

void OuvrirVarInt(Services& services);

}  // namespace quelvar::forms
