// Lexical table of questions: words crossed with the modalities of the chosen questions, in the shape of a table that
// the factor analysis takes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"

namespace quelvar::text {

inline constexpr int kFrequenceParDefaut = 4;

struct OptionsTabMot {
  std::optional<std::vector<std::string>> actives{};  // names of questions; those marked &ACT& without it
  int frequenceMin = kFrequenceParDefaut;             // a null one stands for the default
  bool codesZero = false;                             // code 0 gets a column
  int limite = kDepassementsAuPlus;                   // excesses of code-max before the stop; 0 for no stop
  std::optional<bool> themes{};                       // without it the words tell: all begin with "_"

  int FrequenceExigee() const { return frequenceMin == 0 ? kFrequenceParDefaut : frequenceMin; }
  bool operator==(const OptionsTabMot&) const = default;
};

// Runs the program; the report is .PRT. .BRT, .MOD and .POS change at the normal end only, all or none.
Fin TabMot(const Contexte& contexte, const OptionsTabMot& options);

}  // namespace quelvar::text
