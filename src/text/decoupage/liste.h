// The words in their order: sort of the lines of concordance, distinct words with code and frequency, and the files
// that hold them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/programme/dialogue.h"
#include "core/resultats/tableau.h"
#include "text/commun/lignedemot.h"
#include "text/decoupage/mots.h"

namespace quelvar::text {

struct MotDistinct {
  std::array<char, kLargeurMot> mot{};
  std::array<char, kLargeurCode> code{};
  std::int64_t frequence = 0;

  std::string_view Mot() const { return {mot.data(), mot.size()}; }
  std::string_view Code() const { return {code.data(), code.size()}; }
};

// Gives each distinct word its code: four characters of the word, or a running number behind its first ones as long as
// the three first characters stay those of the word before.
class Codeur {
 public:
  std::array<char, kLargeurCode> Coder(std::string_view mot);

 private:
  std::string precedent_;
  int numero_ = 0;
};

// Sorts the words of the corpus in place by the first twenty columns of their line, and returns the distinct ones;
// the words of the first come first.
std::vector<MotDistinct> TrierEtCoder(Corpus& corpus, const Dialogue& dialogue);

// The lines of .NT1 or .TR1, in the order in which the corpus holds its words.
void EcrireConcordances(Ecrivain& fichier, const Corpus& corpus);
// The lines of .DAT; the words of the corpus are sorted and these are the distinct ones.
void EcrireDonnees(Ecrivain& fichier, const Corpus& corpus, const std::vector<MotDistinct>& distincts);
// The lines of .EDI.
void EcrireEdition(Ecrivain& fichier, const std::vector<MotDistinct>& distincts);
// The words with their frequencies.
TableauEdite TableauDesMots(const std::vector<MotDistinct>& distincts);

}  // namespace quelvar::text
