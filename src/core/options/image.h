// The option that names the file of a picture, which the companion writes as SVG only.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/options/option.h"
#include "core/texte/texte.h"

namespace quelvar {

// How a member is set from that file name. Raises UsageIncorrect for another extension: a picture that could not be
// written is refused before the run that it shows.
template <typename Options>
std::function<void(Options&, const std::string&)> PoserImage(std::string nom, std::string Options::*membre) {
  return [nom = std::move(nom), membre](Options& options, const std::string& valeur) {
    constexpr std::string_view kExtension = ".svg";
    if (valeur.size() <= kExtension.size() || !Minuscules(valeur).ends_with(kExtension))
      RefuserValeur(nom, "un nom en .svg", valeur);
    options.*membre = valeur;
  };
}

// How it is told back; nothing when no picture is asked for.
template <typename Options>
std::function<std::vector<std::string>(const Options&)> EcrireImage(std::string Options::*membre) {
  return [membre](const Options& options) {
    return (options.*membre).empty() ? std::vector<std::string>() : std::vector<std::string>{options.*membre};
  };
}

}  // namespace quelvar
