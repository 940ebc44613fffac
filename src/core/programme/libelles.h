// The words of an unexpected error that several programs share.
#pragma once

#include "core/programme/programme.h"

namespace quelvar {

// The number alone, without its words.
inline LibellesErreur LibellesSansTexte() {
  LibellesErreur libelles;
  libelles.numero = " notez le numéro suivant : ERREUR NUMERO ="_w;
  libelles.avecTexte = false;
  return libelles;
}

}  // namespace quelvar
