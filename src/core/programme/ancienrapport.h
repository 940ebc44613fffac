// The report that was there before a preparation wrote its own: it stays when the request is then refused.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar {

class AncienRapport {
 public:
  // Before the preparation: remembers the report as it is. Raises the failures of reading of LireOctets.
  AncienRapport(const Contexte& contexte, std::string_view extension);

  bool Existait() const { return octets_.has_value(); }
  // Puts it back in the place of what the preparation has written; without a former one there is none any more. Raises
  // a failure of writing.
  void Remettre() const;

 private:
  Chemin chemin_;
  std::optional<std::string> octets_;
};

}  // namespace quelvar
