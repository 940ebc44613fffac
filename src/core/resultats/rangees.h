// The tables of a report whose rows follow each other: a title, cells each in the place of its column, a label. Places
// are minima: a column whose values need more widens as a whole where its place says so, and its heading moves along.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/programme/report.h"
#include "core/resultats/tableau.h"

namespace quelvar {

// What a column does for a value that its place does not hold.
enum class Elargissement : std::uint8_t {
  Aucun,             // this row alone shifts: for places that other programs read
  Entier,            // the same for a number that is always whole, which no "$" marks
  DerriereUnTexte,   // the column widens until the value fits
  DerriereUnNombre,  // and keeps one blank before it
};

struct PlaceEnRangee {
  std::string_view avant = {};  // stands in front of the place in every row
  int entiers = 0;  // columns of the sign and the digits before the point; of the text of a cell without value
  Elargissement elargissement = Elargissement::Aucun;
};

struct FormeEnRangees {
  int titre = 0;                        // columns of the title, cut and padded; 0: as it stands
  std::vector<PlaceEnRangee> places;    // one a column; the last one serves the columns that follow too
  std::string_view avantIntitule = {};  // in front of the label; it ends the rows without label as well
};

// The lines above the table as they stand, the heading if there is one (the corner, then the titles of the columns,
// each moved by what its column has widened), and the rows. A cell without a value shows its mark as a text: cut and
// padded to its place, or as it stands in a place of no columns. Raises kArgumentIncorrect or kDepassementCapacite for
// a value that is not finite.
void ImprimerRangees(Rapport& rapport, const TableauEdite& tableau, const FormeEnRangees& forme);

}  // namespace quelvar
