// The settings store of a test: a table in memory in place of the store of the platform.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "core/session/reglages.h"

namespace essai {

// A store that lives as long as its copies.
inline quelvar::Reglages ReglagesEnMemoire() {
  const auto table = std::make_shared<std::map<std::string, std::string>>();
  const auto nom = [](std::string_view application, std::string_view section, std::string_view cle) {
    return std::string(application) + '\n' + std::string(section) + '\n' + std::string(cle);
  };
  quelvar::Reglages reglages;
  reglages.lire = [table, nom](std::string_view application, std::string_view section, std::string_view cle) {
    const auto trouve = table->find(nom(application, section, cle));
    return trouve == table->end() ? std::string() : trouve->second;
  };
  reglages.ecrire = [table, nom](std::string_view application, std::string_view section, std::string_view cle,
                                 std::string_view valeur) {
    if (valeur.empty()) table->erase(nom(application, section, cle));
    else (*table)[nom(application, section, cle)] = std::string(valeur);
  };
  return reglages;
}

}  // namespace essai
