// Makes links: between rows and columns of a table, between its rows, between the modalities of a Burt table, and
// between rows that stand in a same clique.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "crosstab/tableau/compte.h"
#include "tables/liens/liens.h"

namespace quelvar::tables {

// One link for each cell of positive PEM (percent), row after row of the present order; the nodes are those of the
// files. Raises kDepassementCapacite when there are more nodes than a record can number.
std::vector<Lien> LiensDesCellules(const crosstab::TableauCompte& table, const Matrice& pem);

// One link for each pair of rows, in the present order: 100 less the mean over the columns of the absolute difference
// of their PEM. Raises kDepassementCapacite as above.
std::vector<Lien> LiensEntreLignes(const crosstab::TableauCompte& table, const Matrice& pem);

// Which of the links between rows are kept, once sorted by value.
enum class ChoixDeLiens { DeuxMille, IndexDe80, Tous };
void GarderMeilleurs(std::vector<Lien>& liens, ChoixDeLiens choix);

// Upper half of a Burt table.
struct DemiBurt {
  std::vector<double> totaux;    // the diagonal
  std::vector<double> cellules;  // row after row, the cells on the right of the diagonal
};

// One link for each pair of modalities whose PEM and chi-square are positive, out of `individus`. Raises
// kDepassementCapacite as above and kDivisionParZero as PemLocal.
std::vector<Lien> LiensDuBurt(const DemiBurt& burt, double individus);

// All the links of cliques have it: a proximity without any difference.
inline constexpr float kValeurDansUneClique = 100;

// One link of that value for each pair of rows, numbered from 1 to `lignes`, that stand together in one of the cliques;
// row i is node `colonnes` + i. Raises kIndiceHorsSelection, with the rank of the clique as a line, for a row that is
// not in the table, kDepassementCapacite as above.
std::vector<Lien> LiensDesCliques(std::span<const std::vector<std::size_t>> cliques, std::size_t lignes,
                                  std::size_t colonnes);

// The row numbers of a line: the first 5 columns number the clique, blanks stand between the numbers.
std::vector<std::size_t> LireClique(std::string_view ligne);

}  // namespace quelvar::tables
