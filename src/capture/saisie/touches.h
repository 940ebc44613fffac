// An entry as text, so that it can be replayed: keys by their names, or records by their answers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "capture/saisie/etat.h"

namespace quelvar::capture {

// A line of keys: names separated by blanks ("Droite", "Bas*3"), a text between quotes for its characters (a quote
// inside is doubled), a single character for itself, and "Enregistrement=12" to look at a record.
struct Frappe {
  Touche touche;
  std::int64_t enregistrement = 0;  // the record to look at instead of a key; 0 for a key
};
struct LigneDeTouches {
  std::vector<Frappe> frappes;
  std::string faute;  // the word that is no key; empty when all of them are
};
LigneDeTouches LireTouches(std::string_view ligne);

// What the moves from question to question make of answers that came as a whole.
struct Passage {
  std::string recrite;  // the first long number whose zeros in front have gone; empty for none
  std::string sautee;   // the first question answered all the same though a skip test jumps over it; empty for none
};

// A line of answers separated by ";", in the order of the questions, as if each was keyed before the next one: a long
// number is left as its plain decimal form, and skip tests are looked at. Returns what is wrong with it, or nothing and
// the answers in the state.
std::string PrendreReponses(EtatSaisie& etat, std::string_view ligne, Passage& passage);

// The names of the keys, separated by blanks, for the help of the companion.
std::string NomsDesTouches();

}  // namespace quelvar::capture
