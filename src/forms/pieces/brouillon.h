// The report that a preparation has begun: it stays out of the directory until something is launched, and the former
// report stays in its place.
#pragma once

#include <optional>
#include <string>

#include "core/programme/programme.h"

namespace quelvar::forms {

class Brouillon {
 public:
  // Before the preparation: remembers the report as it is (generic and extension).
  Brouillon(const Contexte& contexte, std::string_view extension);

  // Behind the preparation, whether it came to its end or not: takes what it has written out of the directory, and puts
  // the former report back. Raises a failure of writing.
  void Retirer();
  // Before the first launch that goes on with it: the report of the preparation takes its place.
  void Poser();
  // After that launch, when it was given up: out of the directory again.
  void Reprendre();
  // At the end of a form: shows the report, which is not kept when nothing was launched.
  void Montrer(const Contexte& contexte) const;

 private:
  void RemettreLAncien() const;

  Chemin chemin_;
  std::string nom_;
  std::optional<std::string> ancien_;
  std::optional<std::string> prepare_;  // not in the directory yet
  std::optional<std::string> pose_;     // put there by the last launch
};

}  // namespace quelvar::forms
