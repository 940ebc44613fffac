// The lexical table: occurrences of each word in each modality of the chosen questions, counted in one reading of the
// words.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar::text {

// Columns of the table: those of each question follow one another, code zero first when it counts.
struct PlanLexical {
  struct Groupe {
    std::size_t question = 0;  // rank in the position file
    int position = 0;          // column of its code, from 1
    int codeMax = 0;
    std::size_t debut = 0;  // its first column of the table
  };
  std::vector<Groupe> groupes;
  std::vector<std::string> noms;  // of the columns, four characters
  bool codesZero = false;
};

// Raises kIndiceHorsSelection for a code-max above 99.
PlanLexical PlanifierTable(const FichierPos& pos, const std::vector<std::size_t>& actives, bool codesZero);

// A row: code and word as they stand in the data, and how often the word is met.
struct LigneLexicale {
  std::string texte;  // code, then word: kLargeurCode and kLargeurMot columns
  std::int64_t frequence = 0;
};

struct TableLexicale {
  std::size_t colonnes = 0;
  std::vector<LigneLexicale> lignes;
  std::vector<std::uint32_t> cellules;  // row after row
  std::int64_t individus = 0;           // lines read
  std::int64_t motsLus = 0;             // distinct words
  std::uint32_t plusGrande = 0;         // cell of the rows
  bool suite = false;                   // lines follow those that were to be read
  bool montante = true;                 // each word is behind the one before it in the order of their bytes
  bool themes = true;                   // every word is a marker of a theme

  const std::uint32_t* Ligne(std::size_t i) const { return cellules.data() + i * colonnes; }
  std::uint32_t* Ligne(std::size_t i) { return cellules.data() + i * colonnes; }
};

struct ConsignesDeComptage {
  std::int64_t individus = 0;  // lines to read at most
  std::size_t caracteristiques = 0;
  std::int64_t frequenceMin = 1;
  // Told each value above its code-max; it counts as 0.
  std::function<void(std::size_t question, std::int64_t ligne, int valeur)> depassement;
  // Told a line that is not one of words; it raises.
  std::function<void(std::int64_t ligne)> horsFormat;
};

// Rows that CompterMots will make. Raises the failures of LecteurLignes.
std::uint64_t CompterMotsFrequents(const Chemin& donnees, const ConsignesDeComptage& consignes);

// Counts the words of the data file, which stands in the order of the words. Raises what `horsFormat` and `depassement`
// raise, and the failures of LecteurLignes.
TableLexicale CompterMots(const Chemin& donnees, const PlanLexical& plan, const ConsignesDeComptage& consignes,
                          const Dialogue& ecran);

// The first word of the data file that comes back behind another one, with its line (from 1); nothing when the lines of
// each word stand together. Raises the failures of LecteurLignes.
struct MotRevenu {
  std::string mot;
  std::int64_t ligne = 0;
};
std::optional<MotRevenu> ChercherMotRevenu(const Chemin& donnees, std::size_t caracteristiques);

// Themes: each cell becomes 1 when it is above 0. A row with more cells at 1 than the threshold is inverted, and its
// word gets a "*".
void ReduireAuxThemes(TableLexicale& table, std::int64_t seuil);

}  // namespace quelvar::text
