// The codes of texts: which have one together, and how many there are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// The texts of a column that differ by case, accents or blanks only ("Oui", "OUI"), together; those that count as 0 are
// left out. Of lists their answers.
std::vector<std::vector<ValeurComptee>> EcrituresProches(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);

// Gives their codes to texts in order, from 1; with `fondus` a text has the code of the first that is written nearly
// so.
std::vector<int> CodesDesTextes(const ChoixDeColonne& choix, const std::vector<std::string>& textes);

// How many codes the texts of a column take; all its different cells when they are too many to be kept.
std::int64_t TextesACoder(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);

}  // namespace quelvar::capture
