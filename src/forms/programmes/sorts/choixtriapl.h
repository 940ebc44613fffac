// Options of the flat sort.
#pragma once

#include <memory>

#include "forms/services/services.h"
#include "sorts/triapl/triapl.h"

namespace Ui {
class ChoixTriapl;
}

namespace quelvar::forms {

class ChoixTriapl : public Forme {
  Q_OBJECT
 public:
  explicit ChoixTriapl(Services& services);
  ~ChoixTriapl() override;

 private:
  sorts::OptionsTriapl Options() const;
  void LancerTri();

  std::unique_ptr<Ui::ChoixTriapl> ui_;
};

// At level 1 the program runs at once.
void OuvrirTriapl(Services& services);

}  // namespace quelvar::forms
