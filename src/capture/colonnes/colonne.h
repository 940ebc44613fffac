// The columns of a table as an import lays them in .DAT and .POS.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/tableur/codes.h"
#include "core/enquete/colonnes.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// What a report shows for a column without a title.
inline constexpr std::string_view kSansIntitule = "pas d'intitulé"_w;
// The title of a first column that numbers the individuals.
inline constexpr std::string_view kTitreNumero = "NUM";

struct ColonneImportee {
  std::string intitule;
  std::string nomCourt;      // empty when it stays out of .POS
  std::size_t position = 1;  // in .DAT, from 1
  std::size_t largeur = 0;
  double codeMax = 0;           // 0 for a column that holds no codes
  bool numero = false;          // identifies the individuals
  bool telle = false;           // its cells stay as they are, however narrow
  std::size_t rang = 0;         // of the column of the table that it comes from, from 1
  bool intituleChange = false;  // its title had a sign that .POS cannot hold
  bool intituleDonne = false;   // however short, it is that of the question
  bool alphabetique = false;    // a question of texts, of the width that the code-max tells
  bool aDroite = false;         // its texts end with their field

  bool EstEtroite() const { return largeur > 0 && largeur <= kLargeurCodes && !telle && !alphabetique; }
  bool HorsDePortee() const { return position > std::size_t{kDernierePosition}; }
  bool DansPos() const { return codeMax > 0 && !numero && !HorsDePortee(); }
};

// Gives the columns of .POS their names; returns those whose name is not that of their title, by index. Raises
// kIndiceHorsSelection when no name is left.
std::vector<std::size_t> NommerColonnes(std::vector<ColonneImportee>& colonnes);

// Writes the dictionary: generic, number of individuals, a line for each column that is a question. Raises the failures
// of writing.
void EcrirePos(Ecrivain& pos, std::string_view generique, const std::vector<ColonneImportee>& colonnes,
               std::int64_t individus);

}  // namespace quelvar::capture
