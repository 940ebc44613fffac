// The report of a profile, in columns.
#pragma once

#include <string>
#include <vector>

#include "core/programme/report.h"
#include "factor/profil/profil.h"

namespace quelvar::factor {

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

// Mark of a chi-square: stars or "ns", in four columns.
std::string_view MarqueDuTest(double khi2);

void EcrireProfil(Rapport& rapport, const ProfilDeModalite& profil, bool detail);

}  // namespace quelvar::factor
