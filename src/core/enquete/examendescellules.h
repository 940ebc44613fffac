// Cells of a table that are read otherwise than they look: counted as its rows go by, told in one box.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/programme/constats.h"

namespace quelvar {

// What the cells of a table should hold: counts, as in a Burt table, or numbers that may have a sign and decimals.
enum class CellulesAttendues { Effectifs, Nombres };

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

}  // namespace quelvar
