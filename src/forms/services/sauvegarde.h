// The saves of forms: a file in the place of another, and what forms that stay open save as programs do, with no
// report.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/fichiers/generiquetenu.h"
#include "core/panne/erreur.h"
#include "core/programme/programme.h"
#include "forms/services/services.h"

namespace quelvar::forms {

// Puts these bytes in the place of a file. Raises a failure of writing: the file then stays what it was.
void RemplacerFichier(const Chemin& fichier, std::string_view octets, Nature nature);

// Holds the data set for the output of that extension; a box tells what was repaired before. Raises what GeneriqueTenu
// raises.
GeneriqueTenu TenirEnLeDisant(const Services& services, const Contexte& contexte, std::string_view extension);

struct Sauvegarde {
  bool faite = false;                // false also when another run goes on or the user has given this one up
  std::optional<Erreur> echec = {};  // for the form to tell
};

// Runs the save of the file of that extension on the data set, which it holds meanwhile.
Sauvegarde SauverSur(const Services& services, const Contexte& contexte, std::string_view extension,
                     const std::function<void(const Contexte&)>& sauver);

// What the form shows of it: the sentence for a success, or the words of the failure; nothing when it was not run.
QString TexteDeLaSauvegarde(const Sauvegarde& sauvegarde, std::string_view reussite);

}  // namespace quelvar::forms
