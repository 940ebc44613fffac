// The situations of a tabular analysis: one modality for each explanatory question, how many individuals are in it, and
// how many of them have the explained modality.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "regression/anatab/fiches.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

// How a modality shows itself in a situation: by the first four characters of its label, which are all that tells it
// from the others of its question.
struct CelluleDeSituation {
  std::string intitule;  // 4 characters
  std::string role;      // 4 characters: " R  ", " Y  " or blanks
  bool reference = false;
  std::size_t texte = 0;     // the first modality whose cell reads the same
  std::size_t designee = 0;  // the last modality whose label begins so: the one that is found by these characters
};

// The cell of each explanatory modality, and behind them an empty one that stands where a situation lacks a modality.
std::vector<CelluleDeSituation> CellulesDe(const Modele& modele);

// Chi-square of a 2 x 2 table.
struct Khi2Paire {
  double khi2 = 0;
  int classe = 0;  // 3 above 6.64, 2 above 3.84, 1 above 2.71
};

// A cell of `n` individuals, `y` of them with the explained modality, against the rest of a population of `total`
// individuals and `totalOui`: the sum of (expected - observed)^2 / expected. Raises kDivisionParZero for an expected
// value of 0. Source: K. Pearson, Philosophical Magazine 50 (1900).
Khi2Paire KhiCellule(double total, double totalOui, double n, double y);
// The same for the two rows of a table of their own.
Khi2Paire KhiPaire(double n1, double n2, double y1, double y2);

struct Situation {
  double effectif = 0;
  double oui = 0;          // of the first line of its group
  double pourcentage = 0;  // of the explained modality, rounded to 6 decimals as the table of situations keeps it
  Khi2Paire khi2;

  double Brut() const { return 100 * oui / effectif; }
  // Individuals with the explained modality, by the percentage that is kept.
  double OuiConserve() const { return pourcentage * effectif / 100; }
  // Standard error of the share, from 0 to 1: root of p (1 - p) / n.
  double EcartTypeDeLaPart() const;
  double EcartTypeEnPoints() const { return 100 * EcartTypeDeLaPart(); }
};

struct TableSituations {
  std::size_t questions = 0;  // cells of a situation
  std::vector<Situation> situations;
  std::vector<std::uint32_t> modalites;  // `questions` of them a situation, by rank among the cells

  std::span<const std::uint32_t> Modalites(std::size_t s) const {
    return std::span(modalites).subspan(s * questions, questions);
  }
  double Population() const;
};

// Groups neighbouring records of one situation: the first gives those who have the explained modality, the last the
// others, and the group is these two together. The chi-squares are left for ExaminerSituations.
TableSituations FormerSituations(const std::vector<Comptee>& comptees, const Fiches& fiches, const Modele& modele);

// Gives each situation its chi-square against the rest of `individus`, of whom `oui` have the explained modality.
// Returns how many were examined: a situation that has an expected value of 0 ends the work.
std::size_t ExaminerSituations(TableSituations& table, double individus, double oui);

// The last situation that holds nothing but references.
std::optional<std::size_t> SituationDeReference(const TableSituations& table,
                                                const std::vector<CelluleDeSituation>& cellules);

}  // namespace quelvar::regression
