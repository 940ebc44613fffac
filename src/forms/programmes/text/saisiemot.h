// Word cutting: where the characteristics end, where the stimulus is, and what becomes of empty answers.
#pragma once

#include <memory>

#include "forms/services/forme.h"
#include "forms/services/services.h"
#include "text/decoupage/apercu.h"
#include "text/decoupage/saisiemot.h"

namespace Ui {
class SaisieMot;
}

namespace quelvar::forms {

class SaisieMot : public Forme {
  Q_OBJECT
 public:
  explicit SaisieMot(Services& services);
  ~SaisieMot() override;

 private:
  void MontrerApercu();
  void RelierStimulus();
  void MontrerStimulus();
  text::OptionsSaisieMot Options() const;
  void LancerSaisieMot();

  std::vector<text::MotCompte> mots_;
  std::unique_ptr<Ui::SaisieMot> ui_;
};

void OuvrirSaisieMot(Services& services);

}  // namespace quelvar::forms
