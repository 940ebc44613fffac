// What a fitted model says in probabilities: tests by the likelihood, and two readings of the effects for the whole
// population.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "crosstab/tableau/khi2.h"
#include "regression/anatab/base.h"
#include "regression/anatab/modele.h"
#include "regression/logistique/vraisemblance.h"

namespace quelvar::regression {

// A model fitted to the rows of the analysis.
struct ModeleAjuste {
  FonctionDeLien lien = FonctionDeLien::Lineaire;
  Ajustement ajustement;
  std::vector<double> betas;  // of every explanatory modality, 0 for a reference
};

// The effect of a coefficient in percentage points, from the reference situation of the model.
double EffetEnPoints(const ModeleAjuste& ajuste, double beta);

// The rank of the parameter of each explanatory modality, from 0; kSansParametre for a reference.
inline constexpr std::size_t kSansParametre = static_cast<std::size_t>(-1);
std::vector<std::size_t> RangsDesParametres(const Modele& modele);

// The rows of the likelihood: one for each record that the analysis kept. The regressors of a profile are the
// explanatory modalities that are no reference.
Observations ObservationsDe(const std::vector<Comptee>& comptees, const Fiches& fiches, const Modele& modele);

struct TestDeVraisemblance {
  double khi2 = 0;
  crosstab::ProbabiliteKhi2 probabilite;
  double Depassement() const { return probabilite.Depassement(); }
  bool Impossible() const { return probabilite.p == -1; }
};

struct TestsDuModele {
  double logConstante = 0;  // of a probability of one half for everybody
  TestDeVraisemblance modele;
  std::vector<TestDeVraisemblance> parametres;  // each set to 0, the others as they are
};

// Twice the difference of two log-likelihoods as a chi-square, of the whole model and of each parameter. `suivre` is
// told the rank of each test, from 1. Source: S. S. Wilks, "The large-sample distribution of the likelihood ratio",
// Annals of Mathematical Statistics 9 (1938).
TestsDuModele TesterLeModele(const Observations& observations, const ModeleAjuste& ajuste,
                             const std::function<void(std::size_t)>& suivre);

// The mean of the population, from 0 to 1, if each individual were given that modality, all the rest left alone; for
// each modality.
std::vector<double> MoyennesExperimentales(const std::vector<Comptee>& comptees, const Fiches& fiches,
                                           const Modele& modele, const ModeleAjuste& ajuste);

// The adjusted mean of each modality, from 0 to 1: its own effect alone, on a base common to its question and such that
// their weighted mean is the general one. The base is found in 30 steps of halving.
std::vector<double> MoyennesAjustees(const DonneesDeBase& base, const Modele& modele, const ModeleAjuste& ajuste);

}  // namespace quelvar::regression
