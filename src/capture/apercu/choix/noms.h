// The short names of the questions and variables that the choices make: all different among the questions, and among
// the numbers kept.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// Gives a name to each choice that needs one and has none, or has one that another has too. Raises kIndiceHorsSelection
// when no name is left.
void NommerChoix(std::vector<ChoixDeColonne>& choix);
// The same where the facts are known: codes that are all 0 make no question and take no name.
void NommerSelonLesFaits(std::vector<ChoixDeColonne>& choix, const std::vector<FaitsDeColonne>& colonnes);

// The names that these kinds get without any hand, by column; empty for those that need none.
std::vector<std::string> NomsProposes(std::vector<ChoixDeColonne> choix, const std::vector<FaitsDeColonne>& colonnes);

}  // namespace quelvar::capture
