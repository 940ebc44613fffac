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

// A store that lives as long as its copies.
Reglages ReglagesEnMemoire();

// A list of recent files under the keys "RecentFile1" (the latest) to "RecentFile" and the capacity.
struct ListeRecents {
  std::string_view application;
  std::string_view section;
  int capacite;
};
// The four initialisation files of the main form.
inline constexpr ListeRecents kRecentsPrincipal{"Quelvar", "Recent Files", 4};

// The value of one key, empty when it has none; rang counts from 1.
std::string LireRecent(const Reglages& reglages, const ListeRecents& liste, int rang);
// Puts a path at the head of the list, the last one falling out; a path that is listed already changes nothing.
void AjouterRecent(const Reglages& reglages, const ListeRecents& liste, std::string_view valeur);

// Upper case of a UTF-8 text; a character outside the code page stays as it is.
std::string MajusculesUtf8(std::string_view utf8);

}  // namespace quelvar
