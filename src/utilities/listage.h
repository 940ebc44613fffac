// Prints bytes by characters: blocks of fourteen, each with its decimal code above it.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "core/programme/rapport.h"

namespace quelvar::utilities {

// Bytes of a block.
inline constexpr std::size_t kOctetsDUnBloc = 14;
// Columns of a byte: its code to the right, the character below the last digit.
inline constexpr std::size_t kColonnesDUnOctet = 4;
// Bytes of a whole block as it is written, with the ends of its three lines.
inline constexpr std::size_t kBlocEcrit = 3 * 2 + 2 * kOctetsDUnBloc * kColonnesDUnOctet;
// The first code whose character is shown; a point stands for the others.
inline constexpr unsigned kPremierImprimable = 32;

// Two lines behind an empty one for each block. The bytes may come in pieces.
class Listage {
 public:
  explicit Listage(Rapport& rapport);

  void Imprimer(std::string_view octets);
  // The block that is not full, if there is one.
  void Finir();

 private:
  using Colonnes = std::array<char, kColonnesDUnOctet>;

  void Bloc(std::string_view octets);

  Rapport& rapport_;
  std::array<Colonnes, 256> codes_;
  std::array<Colonnes, 256> signes_;
  std::array<char, kBlocEcrit> ecrit_;
  std::array<char, kOctetsDUnBloc> reste_;  // of a piece that has ended inside a block
  std::size_t enReste_ = 0;
};

}  // namespace quelvar::utilities
