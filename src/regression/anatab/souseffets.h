// Sub-effects: two situations that differ in one question, one of them by its reference; and the effect of a modality,
// the weighted mean of its sub-effects.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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

// For each question the situations that agree in all the others, brought together: the sub-effects are pairs of such
// neighbours. They are found anew each time they are gone through, for there may be far more of them than situations,
// and they take no room.
struct Voisinages {
  std::vector<std::uint32_t> ordre;  // question by question the situations, neighbours together, each group ascending
  std::vector<std::uint32_t> modalites;  // of these in the question, by rank among the cells
  std::vector<std::uint32_t> places;     // where each situation stands in that order
  std::vector<std::uint32_t> fins;       // where its group ends
};

Voisinages VoisinagesDe(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules);

using Visiteur = std::function<void(const SousEffet& sousEffet)>;
// All pairs that make a sub-effect, by their first situation, then by their second.
void ParcourirSousEffets(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
                         const Voisinages& voisinages, const Visiteur& visiter);
// Those that compare one modality, in the same order.
void ParcourirSousEffets(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
                         const Voisinages& voisinages, std::size_t modalite, const Visiteur& visiter);

// What an effect is: a difference of percentages, in points, or an odds-ratio.
enum class MesureDEffet { Points, RapportDeChances };

// The measures of one sub-effect.
struct MesureSousEffet {
  double effet = 0;
  double poids = 0;  // individuals of the two situations
  Khi2Paire khi2;
};

// Raises kDivisionParZero for an odds-ratio, or a chi-square, that has a 0 below.
MesureSousEffet Mesurer(const SousEffet& sousEffet, const TableSituations& table, MesureDEffet mesure);

struct Effet {
  std::size_t modalite = 0;  // rank among the explanatory ones
  std::uint64_t nombre = 0;  // of its sub-effects
  double minimum = 0;        // below all of them and 0
  double maximum = 0;        // above all of them and 0
  double poidsMaximum = 0;
  double khi2Maximum = 0;  // above all of them
  double poids = 0;        // sum of the weights
  double moyenne = 0;      // weighted mean
  double ecartType = 0;    // weighted standard deviation

  // One standard deviation below and above the mean.
  double Bas() const { return moyenne - ecartType; }
  double Haut() const { return moyenne + ecartType; }
  bool EcartDepasseMoyenne() const;
  bool Seul() const { return nombre == 1; }
};

// The effect of each modality that has sub-effects, in the order of the modalities.
std::vector<Effet> CalculerEffets(const TableSituations& table, const std::vector<CelluleDeSituation>& cellules,
                                  const Voisinages& voisinages, MesureDEffet mesure);

}  // namespace quelvar::regression
