// The choice of the working directory.
#pragma once

#include <memory>

#include "forms/services/services.h"

namespace Ui {
class RepertoireEnCours;
}

namespace quelvar::forms {

class RepertoireEnCours : public Forme {
  Q_OBJECT
 public:
  explicit RepertoireEnCours(Services& services);
  ~RepertoireEnCours() override;

 private:
  void ListerInitialisations();
  void OuvrirInitialisation();

  std::unique_ptr<Ui::RepertoireEnCours> ui_;
};

void OuvrirRepertoires(Services& services);

}  // namespace quelvar::forms
