// Options of the recoding.
#pragma once

#include <memory>

#include "forms/services/services.h"
#include "sorts/recodage/recodage.h"

namespace Ui {
class ChoixRecodage;
}

namespace quelvar::forms {

class ChoixRecodage : public Forme {
  Q_OBJECT
 public:
  explicit ChoixRecodage(Services& services);
  ~ChoixRecodage() override;

 private:
  void Accorder(bool seules);
  sorts::OptionsRecodage Options() const;
  void LancerRecodage();

  std::unique_ptr<Ui::ChoixRecodage> ui_;
};

// At level 1 the program runs at once.
void OuvrirOutils(Services& services);

}  // namespace quelvar::forms
