// The codes of all individuals in memory, one byte each, question by question, and their counts by crossing.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "core/programme/programme.h"

namespace quelvar::crosstab {

// Largest code that a matrix keeps: the last one that has a character.
inline constexpr int kCodeMaxGarde = kDernierCodeNomme;

// Where a question stands in a data line and the largest of its codes that is kept, from 0 to kCodeMaxGarde; a value
// below 0 or above it is read as 0.
struct ChampPlafonne {
  Champ champ;
  int plafond = 0;
};

class MatriceCodes {
 public:
  MatriceCodes() = default;
  MatriceCodes(std::vector<int> plafonds, std::size_t individus)
      : plafonds_(std::move(plafonds)),
        individus_(individus),
        codes_(std::make_unique_for_overwrite<std::uint8_t[]>(plafonds_.size() * individus)) {}

  std::size_t Individus() const { return individus_; }
  int Plafond(std::size_t question) const { return plafonds_[question]; }
  // One code an individual, in the order of the data lines.
  std::span<std::uint8_t> Codes(std::size_t question) { return {codes_.get() + question * individus_, individus_}; }
  std::span<const std::uint8_t> Codes(std::size_t question) const {
    return {codes_.get() + question * individus_, individus_};
  }

 private:
  std::vector<int> plafonds_;
  std::size_t individus_ = 0;
  std::unique_ptr<std::uint8_t[]> codes_;  // left as it comes: the reading fills every byte
};

// Reads the first `individus` lines of the data file. Raises kFinDeFichierDepassee when the file has fewer,
// kDepassementCapacite for a value beyond 16 bits, kMemoireInsuffisante when the memory does not hold them, and the
// failures of LecteurLignes.
MatriceCodes ChargerCodes(const Chemin& donnees, const std::vector<ChampPlafonne>& champs, std::int64_t individus,
                          Progression& progression);

// The questions that are crossed, by index; `filtre` may be kSansFiltre, which has one modality for everybody.
struct QuestionsCroisees {
  std::size_t filtre;
  std::size_t ligne;
  std::size_t colonne;
};
inline constexpr std::size_t kSansFiltre = static_cast<std::size_t>(-1);

// The counts of row codes by column codes, both from 0 to the ceiling, one table for each code of the filter. One pass
// over the individuals serves them all.
std::vector<Matrice> CompterCroisement(const MatriceCodes& codes, const QuestionsCroisees& questions);

}  // namespace quelvar::crosstab
