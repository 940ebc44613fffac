// Varint: for each question of interest the list of all others by the strength of their link with it.
#pragma once

#include <string>
#include <vector>

#include "core/dessin/barres.h"
#include "core/programme/programme.h"

namespace quelvar::regression {

enum class EditionVarint { Courte, Longue };

struct OptionsVarint {
  std::vector<std::string> questions = {};        // names of the questions of interest, in the order of the profiles
  EditionVarint edition = EditionVarint::Courte;  // the long one at level 2 only
  std::string image = {};                         // file of the picture of the profiles; none is drawn when it is empty

  bool operator==(const OptionsVarint&) const = default;
};

// Why the program refuses so many questions of interest; empty when it takes them.
std::string RefusDuNombreDeQuestions(std::size_t choisies);

// Reads the .DAT and the .POS; writes the .TRF, and the profiles as a table .BRT with its .MOD, of which what stands
// behind the first "**" is kept.
Fin Varint(const Contexte& contexte, const OptionsVarint& options);
// The same; after a normal end `profils` has the bars of each profile, in the order of the report.
Fin Varint(const Contexte& contexte, const OptionsVarint& options, std::vector<GroupeDeBarres>& profils);

// The picture of these profiles, one below the other.
Dessin DessinerProfilsDInteret(const std::vector<GroupeDeBarres>& profils);

}  // namespace quelvar::regression
