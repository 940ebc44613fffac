// The rows of a sheet on their way to whoever asked for them: every cell and every empty row at its place, within the
// bounds of a sheet.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelvar::capture::classeur {

inline constexpr std::int64_t kLignesAuPlus = 1'048'576;
inline constexpr std::int64_t kColonnesAuPlus = 16'384;
inline constexpr std::int64_t kCellulesAuPlus = 250'000'000;  // that hold something
inline constexpr std::uint64_t kOctetsDeCellulesAuPlus = std::uint64_t{4} << 30;
inline constexpr std::size_t kCelluleAuPlus = std::size_t{1} << 20;  // bytes

// Gets the cells of a row in UTF-8, up to the last one that holds something; what it throws ends the reading.
using RecevoirLigne = std::function<void(std::span<const std::string> cellules)>;

class Rangees {
 public:
  explicit Rangees(const RecevoirLigne& recevoir) : recevoir_(recevoir) {}

  // The row of that number, from 1, begins; those left out are empty. Raises a sentence (kIncompatibiliteType) when it
  // does not follow.
  void Commencer(std::int64_t rang);
  std::int64_t Suivant() const { return donnees_ + vides_ + 1; }
  // The value stands in `fois` columns from that one, counted from 0. Raises a sentence (kMemoireInsuffisante) beyond
  // the bounds.
  void Poser(std::int64_t colonne, std::string_view valeur, std::int64_t fois = 1);
  // The row stands `fois` times. Rows that hold nothing wait for one that does.
  void Finir(std::int64_t fois = 1);

 private:
  void Donner();

  const RecevoirLigne& recevoir_;
  std::vector<std::string> cellules_;
  std::size_t largeur_ = 0;
  std::int64_t donnees_ = 0;
  std::int64_t vides_ = 0;
  std::int64_t remplies_ = 0;  // cells given that hold something
  std::int64_t remplieLigne_ = 0;
  std::uint64_t octets_ = 0;  // of the cells given
  std::uint64_t octetsLigne_ = 0;
};

}  // namespace quelvar::capture::classeur
