// The profile of a modality: how strongly every other one is attracted or repelled by it, from their counts.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "core/resultats/tableau.h"

namespace quelvar::factor {

// Counts of a chosen modality against another one, among N individuals.
struct Rencontre {
  double individus = 0;  // N
  double choisie = 0;    // nA
  double autre = 0;      // nB
  double ensemble = 0;   // O, those who have both
};

struct Attraction {
  double theorique = 0;  // T, the count of independence
  double ecart = 0;      // O - T
  double khi2 = 0;       // of the 2 x 2 table, with Yates's correction below an expected count of 5
  int pem = 0;           // percent, negative for a repulsion, rounded half up
};

// Raises kDivisionParZero without individuals or for counts that their margins do not allow, kDepassementCapacite for a
// PEM beyond an integer.
//
// The PEM and the chi-square are those of a cell of a table (crosstab::PemLocal).
Attraction Attirer(const Rencontre& rencontre);

// Order of the rows by falling PEM; equal ones stand as the heap sort leaves them.
std::vector<std::size_t> OrdreDesPem(std::span<const Attraction> attractions);

// One modality against the chosen one.
struct LigneDeProfil {
  std::string nom;       // 4 characters
  std::string intitule;  // trimmed
  double ensemble = 0;   // individuals who have both
  Attraction attraction;
};

struct ProfilDeModalite {
  std::string nom;
  std::string intitule;
  std::vector<LigneDeProfil> lignes;  // in the order of print
};

// A row each modality: PEM, count, with `detail` T, O - T and chi-square, then the mark of its probability class (stars
// or "ns"); label.
TableauEdite TableDuProfil(const ProfilDeModalite& profil, bool detail);

}  // namespace quelvar::factor
