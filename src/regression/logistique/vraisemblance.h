// The likelihood of a binary answer under a linear or a logistic model, and its maximum by a direct search.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quelvar::regression {

enum class FonctionDeLien { Lineaire, Logistique };

// The observations. A profile is a set of regressors that several rows share; a row is a number of individuals with one
// profile and one answer.
struct Observations {
  struct Terme {
    std::uint32_t rang;  // of the parameter, from 0
    double valeur;       // of the regressor
  };
  std::size_t parametres = 0;              // without the constant
  std::vector<Terme> termes;               // of the profiles, one after the other, by ascending rank
  std::vector<std::size_t> departs = {0};  // first term of each profile, and their number
  std::vector<std::uint32_t> profils;      // of each row
  std::vector<double> poids;               // of each row: individuals
  std::vector<double> reponses;            // of each row: 1 for yes, 0 for no

  std::size_t Profils() const { return departs.size() - 1; }
  std::span<const Terme> Termes(std::size_t profil) const {
    return std::span(termes).subspan(departs[profil], departs[profil + 1] - departs[profil]);
  }
};

struct Parametres {
  double alpha = 0;
  std::vector<double> betas;
};

// The probability that the link makes of a score. A logistic of a score out of range is 0 or 1.
double Probabilite(FonctionDeLien lien, double score);

// The log-likelihood, kept up to date while one parameter moves at a time. The score of a profile is the constant plus
// the terms in their order, probabilities are held between 0.00001 and 0.99999, and the sum runs over the rows in their
// order: a value is the one that a full computation gives, though only the profiles that a move reaches are computed.
class LogVraisemblance {
 public:
  LogVraisemblance(const Observations& observations, FonctionDeLien lien, Parametres parametres);

  double Valeur() const { return cumuls_.back(); }
  const Parametres& Courants() const { return parametres_; }
  void PoserAlpha(double alpha);
  void PoserBeta(std::size_t rang, double beta);
  void Poser(Parametres parametres);

 private:
  void Recalculer(std::size_t profil);
  void Recalculer();
  void Sommer(std::size_t depuis);

  const Observations& observations_;
  FonctionDeLien lien_;
  Parametres parametres_;
  std::vector<std::size_t> departsProfils_;  // where the profiles of each parameter start, and their number
  std::vector<std::uint32_t> porteurs_;      // profiles in which the parameter has a term
  std::vector<std::size_t> departsLignes_;
  std::vector<std::uint32_t> lignes_;   // the rows of each profile
  std::vector<std::size_t> premieres_;  // the first row that each parameter reaches
  std::vector<double> termes_;          // of each row
  std::vector<double> cumuls_;          // sums of the rows in front of each row, and of all
};

// A sweep moves each parameter up and down; ordinary tables settle within some hundreds of them.
inline constexpr std::int64_t kPassagesMax = 20000;

struct Ajustement {
  Parametres parametres;
  double logVraisemblance = 0;
  std::int64_t iterations = 0;  // steps on the coefficients, those on the constant apart
  bool interrompu = false;      // the bound of the sweeps was met
};

enum class Mouvement { AlphaPlus, AlphaMoins, BetaPlus, BetaMoins };
constexpr bool EstDAlpha(Mouvement m) { return m == Mouvement::AlphaPlus || m == Mouvement::AlphaMoins; }
constexpr bool Monte(Mouvement m) { return m == Mouvement::AlphaPlus || m == Mouvement::BetaPlus; }
// Told now and then where the search stands.
using Suivi = std::function<void(Mouvement mouvement, double logVraisemblance, double increment)>;

// Climbs from the start: each parameter goes up and then down by the increment as long as the likelihood rises. A line
// search ends with the step that no longer raises it, and this step is not taken back. When a sweep ends where the one
// before it did the increment is divided by ten: 0.01, 0.001, 0.0001.
// Source: coordinate ("univariate") search with fixed steps, as in M. J. Box, D. Davies and W. H. Swann, "Non-Linear
// Optimization Techniques" (ICI Monograph 5, 1969); there the last step is taken back.
Ajustement Maximiser(const Observations& observations, FonctionDeLien lien, Parametres depart, const Suivi& suivi,
                     std::int64_t passagesMax = kPassagesMax);

}  // namespace quelvar::regression
