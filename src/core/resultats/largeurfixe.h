// The tables of a report: fixed columns, cut in blocks that a page holds. Widths are minima: a number that needs more
// widens its column, and never touches its neighbour nor shifts one.
#pragma once

#include <cstddef>
#include <vector>

#include "core/programme/rapport.h"
#include "core/resultats/tableau.h"

namespace quelvar {

struct FormeFixe {
  int tete = 4;     // columns of what stands before the first column of the table
  int colonne = 5;  // of each column
  int page = 75;    // of all columns of a block
};

// Columns that a table wants: that of its head and those of its columns. A column holds its longest label, and its
// largest count with one blank before it; the head holds the largest count of the first column of cells, which a row
// shows in place of a title, and what it takes more than its minimum is taken from the page.
struct LargeursFixes {
  int tete = 0;
  int page = 0;
  std::vector<int> colonnes;
};

// Columns of a number with so many decimals and one blank before it, at least `minimum`.
int LargeurDuNombre(double valeur, int decimales, int minimum);

// Columns that a number wants beyond the usual ones of its place.
int ColonnesEnPlus(double valeur, int decimales, int usuelles);

// The value of a cell, right-aligned in a column of that width; blanks for a cell without one.
std::string TexteEnColonne(const Cellule& cellule, int largeur);

// The columns of one block, [premier, fin[.
struct BlocDeColonnes {
  std::size_t premier = 0, fin = 0;
};
std::vector<BlocDeColonnes> DecouperEnBlocs(const LargeursFixes& largeurs);

// The first column of the table is its total, which stands in the head: it comes again in each block. Every block ends
// with a blank line; a table without columns but the total prints nothing.
LargeursFixes Mesurer(const TableauEdite& tableau, const FormeFixe& forme = {});
void ImprimerLargeurFixe(Rapport& rapport, const TableauEdite& tableau, const FormeFixe& forme = {});

}  // namespace quelvar
