// The data of a tabular analysis before any grouping: the explained modality crossed with each explanatory one.
#pragma once

#include <cstdint>
#include <vector>

#include "core/programme/report.h"
#include "regression/anatab/fiches.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

// Title of the part of the report, and what parts it.
inline constexpr std::string_view kEtoiles = "*************************************";

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

// The questions and the modalities with what each of them is in the model, and the title of the data.
void ImprimerModele(Rapport& rapport, const Modele& modele);
void ImprimerDonneesDeBase(Rapport& rapport, const Modele& modele, const DonneesDeBase& base);

}  // namespace quelvar::regression
