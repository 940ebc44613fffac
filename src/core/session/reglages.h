// The per-user settings store, as a struct of functions: the windows fill it with the store of the platform, the tests
// with a table in memory.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quelvar {

// Values are found by application, section and key. All texts are UTF-8: the store holds paths and nothing of a report.
struct Reglages {
  // The value, empty when the key has none.
  std::function<std::string(std::string_view application, std::string_view section, std::string_view cle)> lire;
  // An empty value takes the key out.
  std::function<void(std::string_view application, std::string_view section, std::string_view cle,
                     std::string_view valeur)>
      ecrire;
};

}  // namespace quelvar
