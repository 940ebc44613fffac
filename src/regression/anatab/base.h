// The data of a tabular analysis before any grouping: the explained modality crossed with each explanatory one.
#pragma once

#include <cstddef>
#include <vector>

#include "regression/anatab/fiches.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

struct DonneesDeBase {
  std::vector<double> oui;    // of each explanatory modality: individuals who also have the explained one
  std::vector<double> total;  // all its individuals
  double nombreOui = 0;
  double individus = 0;

  double MoyenneGenerale() const { return nombreOui / individus; }
  // Share of the explained modality; 0 for a modality that nobody has.
  double Part(std::size_t k) const { return total[k] == 0 ? 0 : oui[k] / total[k]; }
};

DonneesDeBase CompterLaBase(const Individus& individus, const Modele& modele);

}  // namespace quelvar::regression
