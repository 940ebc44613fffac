// Listing of a file by characters: each byte with its decimal code, fourteen to a block.
#pragma once

#include <string>

#include "core/programme/programme.h"

namespace quelvar::utilities {

struct OptionsCaracteres {
  std::string a;  // file to look at

  bool operator==(const OptionsCaracteres&) const = default;
};

// The first thing that a launch lacks; empty when nothing is missing.
std::string ManqueCaracteres(const Contexte& contexte, const OptionsCaracteres& options);

// Report: generic and ".prt".
Fin ListerCaracteres(const Contexte& contexte, const OptionsCaracteres& options);

}  // namespace quelvar::utilities
