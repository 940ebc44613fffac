// Picture of profiles of questions: one bar a question, as long as its PEM.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/dessin/dessin.h"

namespace quelvar::regression {

struct BarresDeProfil {
  std::string titre;
  std::vector<std::pair<std::string, double>> barres;  // label and PEM, in the order of the profile
};

// One profile below the other, all on the scale from 0 to 100.
Dessin DessinerProfils(const std::vector<BarresDeProfil>& profils);

}  // namespace quelvar::regression
