// What the form of the word cutting shows before it starts: the head of the text under its ruler, and the words of the
// cutting before.
#pragma once

#include <string>
#include <vector>

#include "core/programme/programme.h"

namespace quelvar::text {

struct ApercuDuTexte {
  std::string faute;  // why the program can't start; empty otherwise
  std::string texte;  // ruler and first lines
};
ApercuDuTexte ApercevoirTexte(const Contexte& contexte);

// A word with its frequency behind it, as a list shows it, and the word alone.
struct MotCompte {
  std::string texte;
  std::string mot;
};
// The distinct words of generic .DAT in its order; none when it holds no words.
std::vector<MotCompte> MotsDuDecoupage(const Contexte& contexte);

}  // namespace quelvar::text
