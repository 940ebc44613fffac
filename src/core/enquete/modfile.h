// The modality file .MOD: title, parameter line, modality lines, and the kept lines behind "**".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/fichiers/fichiers.h"

namespace quelvar {

struct Modalite {
  std::string nom;              // 4 characters, padded on the right
  std::string marque;           // columns 5-7 as they stand
  bool supplementaire = false;  // an S or s in columns 5-7
  std::string intitule;         // column 8 to the end as it stands
};

struct FichierMod {
  std::string titre;
  std::string parametres;           // line 2
  std::vector<Modalite> modalites;  // up to the end mark
  std::vector<std::string> lignes;  // every line of the file as it stands
  std::size_t premiereApres = 0;    // index in `lignes` of the end mark; its size at the end of the file
};

// A .MOD shorter than this counts as absent.
inline constexpr std::uintmax_t kModVide = 3;

Modalite LireLigneModalite(std::string_view ligne);
// A line that ends the list: its four-character head blank, empty, or holding "**".
bool FinitLesModalites(std::string_view ligne);

// Raises kFinDeFichierDepassee for less than two lines and the failures of LecteurLignes.
FichierMod LireMod(const Chemin& chemin);

// A modality line: name, mark, label of at most kIntituleDeModaliteAuPlus characters.
std::string LigneModalite(std::string_view nom, bool supplementaire, std::string_view intitule);

// Path of the .MOD of that name if it exists; one shorter than kModVide bytes counts as absent.
std::optional<Chemin> ChercherMod(const Chemin& repertoire, std::string_view nom);

// Labels of modalities by name, for the programs that print tables: every line behind the first two, also behind "**".
class IntitulesModalites {
 public:
  // Name: columns 1-4 as they stand. Label: from column 8 on, not trimmed. Of two lines of one name the first counts.
  void Ajouter(std::string_view nom, std::string_view intitule) { intitules_.emplace(nom, intitule); }
  // The label of that modality, empty when its line has none; nullptr without such a line.
  const std::string* Chercher(std::string_view nom) const;

 private:
  std::unordered_map<std::string, std::string> intitules_;
};

// Without two lines the file has no labels. Raises the failures of LecteurLignes.
IntitulesModalites LireIntitules(const Chemin& chemin);

}  // namespace quelvar
