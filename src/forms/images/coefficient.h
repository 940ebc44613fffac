// The three radio buttons by which a form that shows a graph offers the coefficient of its other buttons.
#pragma once

#include <QRadioButton>
#include <functional>

#include "core/dessin/coefficient.h"

namespace quelvar::forms {

struct BoutonsDuCoefficient {
  QRadioButton& faible;
  QRadioButton& moyen;
  QRadioButton& fort;
};

// Ticks the button of that coefficient.
void MontrerCoefficient(const BoutonsDuCoefficient& boutons, Coefficient coefficient);

// Shows the coefficient of a state, which lives as long as the form, and sets it when a button is pressed; `effet`
// comes then.
void RelierCoefficient(const BoutonsDuCoefficient& boutons, Coefficient& coefficient,
                       const std::function<void()>& effet);

}  // namespace quelvar::forms
