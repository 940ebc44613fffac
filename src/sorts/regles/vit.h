// The block of VIT (created variables) that stands behind the questions of a .POS, between lines of "$$".
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/panne/erreur.h"

namespace quelvar::sorts {

struct ElementVit {
  std::string ligne;       // as it stands
  std::string nom;         // columns 1-3
  bool sansCode = false;   // columns 8-9 are blank
  bool additif = false;    // a "+" in columns 8-9: the value of the question counts
  int code = 0;            // the code counted
  std::int32_t score = 1;  // what it counts for
  Lieu ou = {};            // as far as that of its block is known
};

struct Vit {
  std::string nom;
  std::vector<ElementVit> elements;

  bool Additive() const;  // its first element has a "+"
  // The first element that has a "+" where the one at the head has none, or the other way round; nullptr without one.
  const ElementVit* PlusOublie() const;
};

struct BlocVit {
  std::vector<Vit> vits;
  std::size_t lignes = 0;  // lines of the block, its closing "$$" included
};

// The line that opens a VIT with its name, and the one that closes the block.
inline constexpr std::string_view kMarqueVit = "$$";
// The code of an element stands in these columns, counted from 1, and its score behind them.
inline constexpr std::size_t kColonneDeCodeVit = 8;
inline constexpr std::size_t kColonnesDeCodeVit = 2;
// The largest that they hold.
inline constexpr int kCodeVitMaximum = 99;
// Largest numbers of VIT and of elements of one.
inline constexpr std::size_t kVitMaximum = 50;
inline constexpr std::size_t kElementsVitMaximum = 50;

// Reads the block that opens on the first line, which stands at `debut` as far as that is known. The end of the lines
// closes it too. Raises kIndiceHorsSelection beyond the largest numbers, kDepassementCapacite for a code or a score
// beyond 16 bits.
BlocVit LireBlocVit(std::span<const std::string> lignes, const Lieu& debut = {});
// That of a .POS, empty where none follows the questions. Raises as above.
BlocVit LireBlocVit(const FichierPos& pos);

}  // namespace quelvar::sorts
