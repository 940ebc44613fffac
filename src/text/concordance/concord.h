// Concordance: the lines of the last cutting in which a word stands, the word lined up in one column.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/programme.h"
#include "text/concordance/recherche.h"

namespace quelvar::text {

enum class OrdreDeConcordance { Fichier, Gauche, Droite };

struct LigneDeConcordance {
  std::string caracteristiques;
  std::string gauche;  // 30 columns, the stars of the fill taken off
  std::string droite;  // what follows, the word first
};

struct Concordances {
  std::vector<MotsCherches> cherches;
  std::vector<MotTrouve> mots;           // all of their words, each once
  std::vector<std::string> remarques{};  // what the reader of the lines must know of them
  std::string source;                    // name of the file read
  std::string faute;                     // why there are no lines to read; empty otherwise
  std::vector<LigneDeConcordance> lignes;
};

// Reads the lines of .TR1, or of .DAT when the auxiliaries are gone, in which one of the words stands.
// Raises a failure of reading.
Concordances ChercherConcordances(const Contexte& contexte, std::vector<MotsCherches> cherches);

// Why the text cannot be saved there: under the name of a file of the data set. Empty when it can.
std::string RefusDEnregistrer(const Contexte& contexte, const Chemin& cible);

struct OptionsConcordance {
  std::vector<std::string> mots{};
  std::vector<std::string> lignes{};  // of the table
  OrdreDeConcordance ordre = OrdreDeConcordance::Fichier;
  std::string sortie{};    // file for the text; it is only shown without one
  bool remplacer = false;  // that file may be there

  bool operator==(const OptionsConcordance&) const = default;
};
// Shows the concordance and saves it; a file that is there is asked about, one of the data set is refused.
Fin Concord(const Contexte& contexte, const OptionsConcordance& options);

}  // namespace quelvar::text
