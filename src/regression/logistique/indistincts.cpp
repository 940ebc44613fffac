#include "regression/logistique/indistincts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelvar::regression {

namespace {

constexpr double kRien = 1e-9;  // of regressors that are small integers

// Rows reduced by each other: each has a 1 at its pivot, where all others have a 0.
struct Echelons {
  std::vector<std::vector<double>> lignes;
  std::vector<std::size_t> pivots;

  void Ajouter(std::vector<double> ligne) {
    for (std::size_t i = 0; i < lignes.size(); ++i) Retrancher(ligne, lignes[i], pivots[i]);
    const auto place =
        std::max_element(ligne.begin(), ligne.end(), [](double a, double b) { return std::fabs(a) < std::fabs(b); });
    if (std::fabs(*place) < kRien) return;
    const auto pivot = static_cast<std::size_t>(place - ligne.begin());
    const double diviseur = *place;
    for (double& x : ligne) x /= diviseur;
    for (std::vector<double>& autre : lignes) Retrancher(autre, ligne, pivot);
    lignes.push_back(std::move(ligne));
    pivots.push_back(pivot);
  }

 private:
  static void Retrancher(std::vector<double>& de, const std::vector<double>& autre, std::size_t pivot) {
    const double facteur = de[pivot];
    if (facteur == 0) return;
    for (std::size_t j = 0; j < de.size(); ++j) de[j] -= facteur * autre[j];
  }
};

}  // namespace

std::vector<std::size_t> ParametresIndistincts(const Observations& observations) {
  const std::size_t constante = observations.parametres;
  std::vector<bool> presents(constante + 1);
  presents[constante] = true;
  for (const Observations::Terme& terme : observations.termes) presents[terme.rang] = true;
  const auto cherches = static_cast<std::size_t>(std::count(presents.begin(), presents.end(), true));

  Echelons echelons;
  for (std::size_t s = 0; s < observations.Profils() && echelons.lignes.size() < cherches; ++s) {
    std::vector<double> ligne(constante + 1);
    ligne[constante] = 1;
    for (const Observations::Terme& terme : observations.Termes(s)) ligne[terme.rang] = terme.valeur;
    echelons.Ajouter(std::move(ligne));
  }

  // A column without a pivot is free, and so is whatever a row ties to it.
  std::vector<bool> libres(constante + 1, true);
  for (const std::size_t pivot : echelons.pivots) libres[pivot] = false;
  std::vector<bool> indistincts = libres;
  for (std::size_t i = 0; i < echelons.lignes.size(); ++i)
    for (std::size_t j = 0; j <= constante; ++j)
      if (libres[j] && std::fabs(echelons.lignes[i][j]) > kRien) indistincts[echelons.pivots[i]] = true;
  std::vector<std::size_t> rangs;
  for (std::size_t j = 0; j < constante; ++j)
    if (indistincts[j] && presents[j]) rangs.push_back(j);
  return rangs;
}

}  // namespace quelvar::regression
