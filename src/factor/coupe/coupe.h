// The cut of the tree of a classification at a level: the list of the classes of modalities as recoding orders, or a
// new generic with a variable of the classes of individuals.
#pragma once

#include <string>

#include "core/programme/programme.h"
#include "factor/classement/cah.h"

namespace quelvar::factor {

struct OptionsCoupe {
  int niveau = 0;               // number of steps
  bool intitulesLongs = false;  // classes of modalities are listed by their long labels
  bool remplacer = false;       // the files of the next generic may be replaced unasked; else a free name is proposed

  bool operator==(const OptionsCoupe&) const = default;
};

// Cuts the tree of the generic and appends to .PRT. For individuals it writes .DAT, .POS and .MOD of the next generic,
// to which Qvr2.ini moves; `nouveau` receives its name. A run that stops leaves these files as they were. Raises what
// the files raise.
void CouperArbre(const Contexte& contexte, Rapport& rapport, const OptionsCoupe& options, std::string& nouveau);

// The same as a run of its own.
Fin WardCoupe(const Contexte& contexte, const OptionsCoupe& options);

}  // namespace quelvar::factor
