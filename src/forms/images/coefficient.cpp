#include "forms/images/coefficient.h"

namespace quelvar::forms {

void MontrerCoefficient(const BoutonsDuCoefficient& boutons, Coefficient coefficient) {
  (coefficient == Coefficient::Faible ? boutons.faible
   : coefficient == Coefficient::Fort ? boutons.fort
                                      : boutons.moyen)
      .setChecked(true);
}

void RelierCoefficient(const BoutonsDuCoefficient& boutons, Coefficient& coefficient,
                       const std::function<void()>& effet) {
  const auto relier = [&](QRadioButton& bouton, Coefficient sien) {
    QObject::connect(&bouton, &QRadioButton::clicked, &bouton, [&coefficient, sien, effet] {
      coefficient = sien;
      effet();
    });
  };
  relier(boutons.faible, Coefficient::Faible);
  relier(boutons.moyen, Coefficient::Moyen);
  relier(boutons.fort, Coefficient::Fort);
  MontrerCoefficient(boutons, coefficient);
}

}  // namespace quelvar::forms
