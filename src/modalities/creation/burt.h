// The Burt table of a survey: how many individuals have both modalities of each pair.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quelvar::modalities {

// A symmetric table of counts, of which only the cells on and above the diagonal are kept.
//
// The individuals come in blocks. In a block the row of a modality is the sum of the presence vectors, one byte a
// modality, of the individuals who have it: long runs of bytes that the processor adds sixteen and more at a time. An
// individual with q modalities out of M costs q such runs, never M.
class TableBurt {
 public:
  explicit TableBurt(std::size_t modalites);

  std::size_t Modalites() const { return porteurs_.size(); }

  // Adds 1 to the cell of each pair of an individual's modalities, given by their indices, from 0, each once.
  void Compter(std::span<const std::uint32_t> presentes);
  // To be called behind the last individual: the counts are then complete.
  void Achever() { CompterLeBloc(); }

  // Count of a pair; the order of the two does not matter.
  std::int64_t Effectif(std::size_t i, std::size_t j) const;
  // The counts of a modality with each modality.
  void Ligne(std::size_t i, std::span<std::int64_t> effectifs) const;
  std::int64_t PlusGrandEffectif() const;

 private:
  // Counts of one byte, eight to a word: adding two words adds eight counts, as long as none of them overflows.
  using Octets = std::uint64_t;
  static constexpr std::size_t kParMot = sizeof(Octets);
  // A row starts at the run of words that holds its diagonal.
  static constexpr std::size_t kTroncon = 4;

  std::size_t PremierMot(std::size_t i) const { return i / (kParMot * kTroncon) * kTroncon; }
  std::size_t Mot(std::size_t i, std::size_t j) const { return departs_[i] + j / kParMot - PremierMot(i); }
  void CompterLeBloc();
  void AjouterPorteurs(std::size_t i, std::span<const std::uint32_t> individus);
  void Reporter(std::size_t i);

  std::size_t mots_;  // words of a presence vector, a whole number of runs
  std::size_t individusParBloc_;
  std::vector<std::size_t> departs_;  // first word of each row, and the number of words

  std::vector<Octets> presences_;      // of the individuals of the block, and a vector of zeros behind them
  std::vector<std::uint32_t> listes_;  // their modalities, one after the other
  std::vector<std::uint32_t> fins_;    // where the list of each ends

  // Recent counts stand on one byte; a row is carried over before one can overflow.
  std::vector<Octets> recents_;
  std::vector<std::uint8_t> porteurs_;  // individuals in the recent counts of each row
  std::vector<std::int64_t> reportes_;  // a count for each byte of recents_; empty until the first carry
};

}  // namespace quelvar::modalities
