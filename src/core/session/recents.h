// The recent files that the menus show, as the per-user settings store keeps them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/session/reglages.h"

namespace quelvar {

// A list of recent files under the keys "RecentFile1" (the latest) to "RecentFile" and the capacity.
struct ListeRecents {
  std::string_view application;
  std::string_view section;
  int capacite;
};
// The initialisation files of the main form.
inline constexpr ListeRecents kRecentsPrincipal{"Quelvar", "Recent Files", 4};

// The value of one key, empty when it has none; rang counts from 1.
std::string LireRecent(const Reglages& reglages, const ListeRecents& liste, int rang);
// Puts a path at the head of the list, the last one falling out; a path that is listed already changes nothing.
void AjouterRecent(const Reglages& reglages, const ListeRecents& liste, std::string_view valeur);

// Upper case of a UTF-8 text; a character outside the code page stays as it is.
std::string MajusculesUtf8(std::string_view utf8);

struct EntreeRecente {
  std::string chemin;             // as the store keeps it, UTF-8
  std::string generique;          // first line of the file, or that it is unknown
  std::optional<Chemin> fichier;  // nothing for a file that can't be opened
};
// The entries in the order of their keys; a key without value has none.
std::vector<EntreeRecente> FichiersRecents(const Reglages& reglages);
// Puts an initialisation file at the head of the list of the main form.
void AjouterFichierRecent(const Reglages& reglages, const Chemin& initialisation);

}  // namespace quelvar
