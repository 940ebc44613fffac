// What comes before a utility starts: what the form and the command line both ask for.
#pragma once

#include <string>
#include <string_view>

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

inline constexpr std::string_view kRequiertUnGenerique =
    "Cet utilitaire, à la différence des autres, requiert un nom générique"_w;

// A program on the files of the current generic. Raises UsageIncorrect without one.
template <typename Options, Fin (*Entree)(const Contexte&, const Options&)>
Fin AvecGenerique(const Contexte& contexte, const Options& options) {
  if (contexte.generique.empty()) throw UsageIncorrect(std::string(kRequiertUnGenerique));
  return Entree(contexte, options);
}

}  // namespace quelvar::utilities
