// Bounds and defaults of the options stand beside their program: a form takes them from there.
#pragma once

#include <QWidget>
#include <string>

#include "core/options/description.h"

namespace quelvar::forms {

// What a control shows of an option before the user has touched it: the button or box of this value ticked (code page),
// the value itself in a text box, which takes no longer number than the largest. Where none of the radio buttons stands
// for it, as for the choices within a box that is not ticked, the first one is. A control that the form lacks is passed
// over.
void PoserDefaut(const QWidget& formulaire, const Option& option, const std::string& valeur);

template <class O>
void PoserDefauts(const QWidget& formulaire, const Description<O>& programme) {
  for (const Option& option : programme.Table())
    PoserDefaut(formulaire, option, programme.ValeurEcrite(O{}, option.nom));
}

}  // namespace quelvar::forms
