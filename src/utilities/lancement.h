// What the command line does before it starts a utility: it asks for what the form would ask for.
#pragma once

#include <string>

#include "core/options/description.h"
#include "core/programme/programme.h"

namespace quelvar::utilities {

// Raises UsageIncorrect with the first thing that the launch lacks.
template <typename Options, std::string (*Manque)(const Contexte&, const Options&),
          Fin (*Entree)(const Contexte&, const Options&)>
Fin Verifier(const Contexte& contexte, const Options& options) {
  if (const std::string manque = Manque(contexte, options); !manque.empty()) throw UsageIncorrect(manque);
  return Entree(contexte, options);
}

// A program on the files of the current generic. Raises UsageIncorrect without one.
template <typename Options, Fin (*Entree)(const Contexte&, const Options&)>
Fin AvecGenerique(const Contexte& contexte, const Options& options) {
  if (contexte.generique.empty())
    throw UsageIncorrect(std::string("Cet utilitaire, à la différence des autres, requiert un nom générique"_w));
  return Entree(contexte, options);
}

}  // namespace quelvar::utilities
