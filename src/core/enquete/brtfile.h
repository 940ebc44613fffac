// The table files that go with a .MOD: the Burt or counted table .BRT and the logical coding .CDG.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/programme/constats.h"

namespace quelvar {

// One row of a .BRT: name in columns 1-4, cells of `largeur` characters from column 5, optional label behind them.
struct LigneBrt {
  std::string nom;  // 4 characters, padded on the right
  std::vector<double> cellules;
  std::string intitule;  // trimmed, at most 25 characters
};

// Cuts a row of `colonnes` cells; `ligne.cellules` is filled in place, so that one row serves a whole file.
// Raises kArgumentIncorrect for a width below 1, kDepassementCapacite for a value beyond a double.
void LireLigneBrt(std::string_view texte, int colonnes, int largeur, LigneBrt& ligne);

// Whether a cell of a table of counts is whole and holds a count, or nothing.
bool EstEffectif(std::string_view cellule, std::size_t largeur);

// Writes a row of integer cells, right-aligned in the width and without separator.
void EcrireLigneBrt(Ecrivain& fichier, std::string_view nom, std::span<const std::int64_t> cellules, int largeur,
                    std::string_view intitule = {});

// Follows the rows of a Burt table as they are read, and stops the run when the table is not that of the .MOD: a row
// that bears the name of another modality, or rows of other widths than those that the parameters tell.
class ControleDeBurt {
 public:
  // The path must outlive it; `largeur` is that of a cell.
  ControleDeBurt(const Chemin& brt, std::size_t colonnes, int largeur);
  // The next row; raises a sentence (kIncompatibiliteType) for a name that is not the one of its modality. A row
  // without a name passes.
  void Voir(std::string_view texte, std::string_view nomAttendu);
  // All rows were seen; raises a sentence (kIncompatibiliteType) when every one is too short for its cells, or goes on
  // with digits or with the numbers of two more cells.
  void Conclure() const;

 private:
  const Chemin& brt_;
  std::size_t largeur_;   // of a cell
  std::size_t longueur_;  // of a row up to its last cell
  std::int64_t rang_ = 0;
  bool toutesCourtes_ = true;
  bool toutesLongues_ = true;
};

// What the cells of a table should hold: counts, as in a Burt table, or numbers that may have a sign and decimals.
enum class CellulesAttendues { Effectifs, Nombres };

// Cells of a table that are read otherwise than they look: counted as its rows go by, told in one box.
class ExamenDesCellules {
 public:
  // Of rows with that many cells of that width.
  ExamenDesCellules(CellulesAttendues attendues, std::size_t colonnes, int largeur);
  // The row that stands at that line of the file, from 1: a cell that the row does not hold whole counts too.
  void Voir(std::string_view texte, std::int64_t ligne);
  // A row behind the last one that the parameters announce: one that is not blank is left out of the table.
  void VoirAuDela(std::string_view texte);
  // A box for each sort of them, on the table of that name.
  void Dire(std::string_view nomBrt, Constats& constats) const;

 private:
  bool EstAttendue(std::string_view cellule) const;

  CellulesAttendues attendues_;
  std::size_t colonnes_;
  std::size_t largeur_;
  std::int64_t nombre_ = 0;
  std::int64_t audela_ = 0;
  std::string premiere_;  // where the first stands, and what it holds
};

// Number of digits of the largest cell, the width that a written table takes.
int LargeurDeTable(std::int64_t plusGrandeCellule);

}  // namespace quelvar
