// Lexical table: the questions that are crossed with the words.
#pragma once

#include <memory>

#include "core/enquete/posfile.h"
#include "forms/pieces/listequestions.h"
#include "forms/services/forme.h"
#include "forms/services/services.h"
#include "text/tableau/tabmot.h"

namespace Ui {
class TabMot;
}

namespace quelvar::forms {

class TabMot : public Forme {
  Q_OBJECT
 public:
  TabMot(Services& services, FichierPos pos);
  ~TabMot() override;

 private:
  text::OptionsTabMot Options() const;
  void LancerTabMot();

  FichierPos pos_;
  modalities::ChoixQuestions choix_;  // the active ones only
  std::unique_ptr<Ui::TabMot> ui_;
  ListesDeQuestions* listes_ = nullptr;
};

void OuvrirTabMot(Services& services);

}  // namespace quelvar::forms
