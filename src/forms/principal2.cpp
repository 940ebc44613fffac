#include "forms/principal2.h"

#include "forms/principal.h"
#include "sorts/triapl.h"

namespace quelvar {

void OuvrirTriapl(Principal& principal) {
  principal.Lancer([](const Contexte& contexte) { Triapl(contexte, {}); });
}

}  // namespace quelvar
