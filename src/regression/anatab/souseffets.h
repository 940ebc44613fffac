// Sub-effects: two situations that differ in one question, one of them by its reference; and the effect of a modality,
// the weighted mean of its sub-effects.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "regression/anatab/situations.h"

namespace quelvar::regression {

struct SousEffet {
  std::uint32_t premiere = 0;  // the situation that stands first in the table
  std::uint32_t seconde = 0;
  std::uint32_t question = 0;  // rank of the cell in which they differ
  bool renverse = false;       // the reference is the second one
  std::uint32_t Reference() const { return renverse ? seconde : premiere; }
  std::uint32_t Comparee() const { return renverse ? premiere : seconde; }
};

// All pairs that make a sub-effect, by their first situation, then by their second.
// Each cell is left out in turn and the situations that agree in the others are brought together by a hash of these,
// so that the work is that of the pairs found and not of all pairs.
std::vector<SousEffet> ChercherSousEffets(const TableSituations& table, const std::vector<Cellule>& cellules);

// The measures of one sub-effect.
struct MesureSousEffet {
  double effet = 0;  // difference of percentages, in points, or odds-ratio
  double poids = 0;  // individuals of the two situations
  Khi2Paire khi2;
};

// Raises 11 for an odds-ratio, or a chi-square, that has a 0 below.
MesureSousEffet Mesurer(const SousEffet& sousEffet, const TableSituations& table, bool oddsRatio);

// The modality that a sub-effect compares with its reference, by the four characters of its cell.
std::size_t ModaliteComparee(const SousEffet& sousEffet, const TableSituations& table,
                             const std::vector<Cellule>& cellules);

struct Effet {
  std::size_t modalite = 0;          // rank among the explanatory ones
  std::vector<std::uint32_t> rangs;  // of its sub-effects, in the order of their discovery
  double poids = 0;                  // sum of the weights
  double moyenne = 0;                // weighted mean, in points or as odds-ratio
  double ecartType = 0;              // weighted standard deviation

  bool EcartDepasseMoyenne() const;
  bool Seul() const { return rangs.size() == 1; }
};

// The effect of each modality that has sub-effects, in the order of the modalities.
std::vector<Effet> CalculerEffets(const std::vector<SousEffet>& sousEffets, const TableSituations& table,
                                  const std::vector<Cellule>& cellules, bool oddsRatio);

}  // namespace quelvar::regression
