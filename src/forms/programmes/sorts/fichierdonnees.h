// The box "Changer de fichier *.DAT" of the flat sort and the recoding.
#pragma once

#include <optional>
#include <string>

#include "forms/cadre/services.h"

namespace quelvar::forms {

// The other data file that the user chooses, by its name alone when it is in the working directory; empty when none is
// asked for, nothing when the choice is cancelled.
std::optional<std::string> ChoisirFichierDeDonnees(const Services& services, bool autre);

// The line of a form whose file is chosen when its run starts: what is still to be said stands behind it.
std::string CommandeAvecFichier(std::string commande, bool autre);

}  // namespace quelvar::forms
