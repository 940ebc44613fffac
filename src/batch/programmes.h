// The programs that quelvar-batch runs: their descriptions, which stand beside them, without the type of their options.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/options/description.h"

namespace quelvar::batch {

struct Programme {
  std::string nom;
  std::string resume;
  std::vector<Option> options;
  // Raises UsageIncorrect before anything runs when an option or a value is not known.
  std::function<Fin(const Contexte&, const LigneDOptions&)> executer;
  // What the law of the tables of options is tested by, without their type: the options as the equivalent command would
  // have them,
  std::function<LigneDOptions(const LigneDOptions&)> recrire;
  // and whether two lines ask for the same.
  std::function<bool(const LigneDOptions&, const LigneDOptions&)> memes;
  bool generiqueFacultatif = false;
};

// A description that outlives the programme, as those of the programs do.
template <typename Options>
Programme ProgrammeDe(const Description<Options>& description) {
  return {description.Nom(),
          description.Resume(),
          description.Table(),
          [&description](const Contexte& contexte, const LigneDOptions& ligne) {
            return description.Executer(contexte, description.Lire(ligne));
          },
          [&description](const LigneDOptions& ligne) { return description.Ecrite(description.Lire(ligne)); },
          [&description](const LigneDOptions& a, const LigneDOptions& b) {
            return description.Lire(a) == description.Lire(b);
          },
          false};
}

// Every program, in the order of --liste.
const std::vector<Programme>& Programmes();

}  // namespace quelvar::batch
