// What keeps the failure of a handler from ending the program: it is told, and the window stays.
#pragma once

#include <functional>

#include "core/panne/erreur.h"

namespace quelvar::forms {

using Gestes = std::function<void()>;
using DireLEchec = std::function<void(const Erreur&)>;

// What is being caught as the one failure type, for a user: a run that he gave up and an option that a program refuses
// have their own sentences. To be called in a handler.
Erreur EchecEnCours();

// Does it; what escapes is given to `dire`. False when something did.
bool Garder(const Gestes& gestes, const DireLEchec& dire);

}  // namespace quelvar::forms
