// The refusal of a question whose code-max is beyond the codes that have a name.
#pragma once

#include <optional>
#include <string>

#include "core/enquete/posfile.h"

namespace quelvar {

// What a run tells before it stops at such a question.
struct RefusDeCodeMax {
  std::string boite;
  std::string ligne;  // of the report
};

// Nothing for a code-max up to kDernierCodeNomme.
std::optional<RefusDeCodeMax> RefusDuCodeMax(const Question& question);

}  // namespace quelvar
