// Results as tables of data, which computing hands to printing: titles, labels, and cells with value, unit, decimals
// and mark. The drivers beside this file turn them into columns of a report, a page, or a file for a spreadsheet.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quelvar {

// Which unit a value is in; a per mille bears no sign, since its column says what it is.
enum class Unite : std::uint8_t { Nombre, Effectif, Pourcent, PourMille };

struct Cellule {
  std::optional<double> valeur = {};  // none: nothing stands there
  Unite unite = Unite::Nombre;
  int decimales = 0;
  std::string marque = {};  // behind the value: "+", "***"
};

struct Colonne {
  std::string titre;          // code or short name
  std::string intitule = {};  // label
};

struct Rangee {
  std::string titre;
  std::string intitule = {};
  std::vector<Cellule> cellules = {};  // one a column
};

struct TableauEdite {
  std::vector<std::string> titres = {};  // lines above the table
  std::string coin = {};                 // stands above the titles of the rows
  std::vector<Colonne> colonnes = {};
  std::vector<Rangee> rangees = {};
};

// The value with its decimals and a point, without blanks; empty without a value.
std::string TexteDeCellule(const Cellule& cellule);

// The files that tables can go to besides the report.
enum class SortieDeTableaux : std::uint8_t { Aucune, Html, Tsv, Csv };

}  // namespace quelvar
