// The options of a program and the controls that show them, both ways, by the table of the program: which control
// stands for what, the bounds and the defaults are told there and nowhere in a form.
#pragma once

#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/options/description.h"

namespace quelvar::forms {

// What the controls of an option show of a value (code page): the button or box of this value ticked, the value itself
// in a text box, which takes no longer number than the largest. Of an option that lists names, the box of each of them
// is ticked. Where none of the radio buttons of a frame stands for the value, as for the choices within a box that is
// not ticked, the first one is ticked; none of an option that has no default. A control that the form lacks is passed
// over.
void PoserOption(const QWidget& formulaire, const Option& option, const std::string& valeur);

// The value that the controls of an option say, in the words of the option (code page), those of a number within its
// bounds, those of several boxes of a list with commas between them; nothing when none of them says any, and the
// default holds. A control that is hidden or disabled says nothing, one on a tab behind another does; nor does a list,
// whose lines are the state of its form, nor any choice that a box opens while the box is not ticked. `defaut` is what
// is shown before the user has touched it.
std::optional<std::string> ValeurMontree(const QWidget& formulaire, const Option& option, const std::string& defaut);

// The number of a text box, between the bounds of the option; 0 stands for a text that is no number.
double NombreDuChamp(const QLineEdit& champ, const Option& option);
// The same with its fraction cut.
int EntierDuChamp(const QLineEdit& champ, const Option& option);

// Shows the options of a program.
template <class O>
void MontrerOptions(const QWidget& formulaire, const Description<O>& programme, const O& options) {
  for (const Option& option : programme.Table())
    PoserOption(formulaire, option, programme.ValeurEcrite(options, option.nom));
}

// Shows its defaults, before the user has touched anything.
template <class O>
void PoserDefauts(const QWidget& formulaire, const Description<O>& programme) {
  MontrerOptions(formulaire, programme, O{});
}

// Calls `effet` when a button or box of an option is ticked or unticked.
void RelierBoutons(const QWidget& formulaire, const std::vector<Option>& options, const std::function<void()>& effet);

// The options as the controls say, the others at their defaults.
template <class O>
O OptionsDesControles(const QWidget& formulaire, const Description<O>& programme) {
  O options;
  for (const Option& option : programme.Table())
    if (const auto valeur = ValeurMontree(formulaire, option, programme.ValeurEcrite(O{}, option.nom)))
      programme.PoserUne(options, option.nom, *valeur);
  return options;
}

}  // namespace quelvar::forms
