// Choice of the questions of interest.
#pragma once

#include <memory>

#include "core/enquete/posfile.h"
#include "forms/pieces/listequestions.h"
#include "forms/services/services.h"
#include "modalities/liste/choix.h"
#include "regression/varint/varint.h"

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
  void LancerVarint();

  FichierPos pos_;
  modalities::ChoixQuestions choix_;
  std::unique_ptr<Ui::ChoixVarInt> ui_;
  ListesDeQuestions* listes_ = nullptr;
};

void OuvrirVarInt(Services& services);

}  // namespace quelvar::forms
