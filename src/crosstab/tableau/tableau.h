// A two-way table with everything that is said of it: margins, order, percentages, chi-square, cells of theoretical
// count below 1, maximum table and PEM.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "crosstab/tableau/khi2.h"
#include "crosstab/tableau/statistiques.h"

namespace quelvar::crosstab {

// Order of rows and columns.
struct OrdreDemande {
  bool pourPem = false;  // on the first axis, ascending scores; else the order of the codes
  bool inverserLignes = false;
  bool inverserColonnes = false;
};

// A cell whose theoretical count is below 1, by its places in the table.
struct CaseFaible {
  std::size_t ligne;
  std::size_t colonne;
  double contribution;
};

// Rows and columns stand at their places in the printed order, empty ones included; the rank at the origin of a row or
// a column is its code.
struct TableauCroise {
  TableauCompte compte;

  // All that follows is empty or 0 in a table of total 0.
  std::vector<std::size_t> lignes;    // places of the rows that are not empty
  std::vector<std::size_t> colonnes;  // places of the columns that are not empty
  DetailsDuTableau details;
  std::vector<double> contributionsLignes;
  std::vector<double> contributionsColonnes;
  double khi2 = 0;
  int degres = 0;
  ProbabiliteKhi2 proba;
  std::vector<CaseFaible> casesFaibles;  // by rows
  double partCasesFaibles = 0;           // percent of the cells of non-empty rows and columns
  double khi2Faibles = 0;
  double partKhi2Faibles = 0;  // percent of the chi-square; 0 when that is 0
  double khi2SansFaibles = 0;
  ProbabiliteKhi2 probaSansFaibles;

  Matrice maximum;  // the maximum table
  double pem = 0;   // percent: sum of the positive deviations over that of the maximum table
  bool deuxParDeux = false;

  bool Vide() const { return compte.marges.total == 0; }
  // A cell is above the mean of its column.
  bool AuDessus(std::size_t i, std::size_t j) const { return details.pourcentages(i, j) > details.partsColonnes[j]; }
};

// Analyses counts whose rows and columns are the codes from 0 to the code-max of their question.
TableauCroise AnalyserTableau(const Matrice& effectifs, const OrdreDemande& ordre);

}  // namespace quelvar::crosstab
