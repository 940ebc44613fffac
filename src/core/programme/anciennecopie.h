// The older copy that a run keeps beside the one that it makes.
#pragma once

#include <string>

#include "core/fichiers/jeu.h"
#include "core/programme/rapport.h"

namespace quelvar {

// An older copy of a file to be saved goes on under a further name, among the outputs; the report tells it. Raises what
// ConserverSauvegarde of the files raises.
void ConserverSauvegarde(Rapport& rapport, const Chemin& fichier, const std::string& sauvegarde,
                         JeuDeFichiers& sorties);

}  // namespace quelvar
