// A request that no form would have launched: a name that is not there, a choice that lacks something.
#pragma once

#include "core/programme/erreur.h"

namespace quelvar {

// Thrown by the body of a run, whose report has told why: it is shown and not kept, the former report stays.
class Refus : public Erreur {
 public:
  Refus() : Erreur(kArretAnnonce) {}
};

}  // namespace quelvar
