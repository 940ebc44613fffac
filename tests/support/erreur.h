// What a test asks of a call that must fail: the number of its error.
#pragma once

#include "core/panne/erreur.h"

namespace essai {

// Number of the Erreur that the action raises; 0 when it raises none.
template <typename Action>
int NumeroLeve(Action action) {
  try {
    action();
  } catch (const quelvar::Erreur& erreur) {
    return erreur.Numero();
  }
  return 0;
}

}  // namespace essai
