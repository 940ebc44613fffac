// Options that say what was done by hand, when options can.
#pragma once

#include <optional>
#include <string_view>

namespace quelvar {

// The options, or why none do the same (code page).
template <class O>
struct OptionsDites {
  std::optional<O> options = {};
  std::string_view raison = {};
};

}  // namespace quelvar
