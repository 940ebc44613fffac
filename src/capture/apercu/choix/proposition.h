// What is proposed for the columns of a table without any hand, and what can be chosen instead.
#pragma once

#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// One for each column: the proposals without any hand. Names are given to those that need one.
std::vector<ChoixDeColonne> ProposerChoix(const std::vector<FaitsDeColonne>& colonnes);
// Another kind for one column, with the parameters that its facts propose.
ChoixDeColonne ProposerGenre(const FaitsDeColonne& colonne, const ChoixDeColonne& actuel, Genre genre);
// The kinds that the content of a column allows, the proposed one first.
std::vector<Genre> GenresPossibles(const FaitsDeColonne& colonne);

}  // namespace quelvar::capture
