// A request that no form would have launched: a name that is not there, a choice that lacks something.
#pragma once

#include <string>
#include <string_view>

#include "core/panne/erreur.h"
#include "core/programme/programme.h"

namespace quelvar {

// Thrown by the body of a run, whose report has told why: it is shown and not kept, the former report stays.
class Refus : public Erreur {
 public:
  Refus() : Erreur(kArretAnnonce) {}
};

// Why a file that the request names can't be written: its directory is not there, or it is one. Empty when it can, and
// for no name.
std::string RefusDEcrire(const Contexte& contexte, std::string_view fichier);

// Before anything is computed: that sentence goes to the report and ends the run (Refus).
void ExigerEcriture(const Contexte& contexte, Rapport& rapport, std::string_view fichier);

}  // namespace quelvar
