// The search on the likelihood against a fit by Newton steps, and each of its values against a full computation.
#include "regression/logistique/vraisemblance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quelvar::regression {

namespace {

// Three questions of 3, 2 and 4 modalities, the last one of each the reference; yes and no for every profile.
Observations Enquete(unsigned graine, bool pourLineaire) {
  constexpr std::uint32_t kModalites[] = {3, 2, 4};
  std::mt19937 hasard(graine);
  const auto tirer = [&](double bas, double haut) {
    return bas + (haut - bas) * static_cast<double>(hasard()) / 4294967296.0;
  };
  std::vector<double> vrais(6);
  for (double& b : vrais) b = pourLineaire ? tirer(-0.1, 0.1) : tirer(-1.2, 1.2);
  Observations o;
  o.parametres = vrais.size();
  for (std::uint32_t a = 0; a < kModalites[0]; ++a)
    for (std::uint32_t b = 0; b < kModalites[1]; ++b)
      for (std::uint32_t c = 0; c < kModalites[2]; ++c) {
        if (a < 2) o.termes.push_back({a, 1});
        if (b < 1) o.termes.push_back({2, 1});
        if (c < 3) o.termes.push_back({3 + c, 1});
        o.departs.push_back(o.termes.size());
        double score = pourLineaire ? 0.5 : -0.4;
        const auto profil = static_cast<std::uint32_t>(o.Profils() - 1);
        for (const Observations::Terme& t : o.Termes(profil)) score += vrais[t.rang];
        const double n = std::floor(tirer(40, 300));
        const double oui = std::max(
            1.0,
            std::floor(n * Probabilite(pourLineaire ? FonctionDeLien::Lineaire : FonctionDeLien::Logistique, score)));
        for (const double y : {1.0, 0.0}) {
          o.profils.push_back(profil);
          o.poids.push_back(y == 1 ? oui : std::max(1.0, n - oui));
          o.reponses.push_back(y);
        }
      }
  return o;
}

// Solves a small positive definite system by Cholesky's method.
std::vector<double> Resoudre(std::vector<std::vector<double>> a, std::vector<double> b) {
  const std::size_t n = b.size();
  for (std::size_t j = 0; j < n; ++j) {
    for (std::size_t k = 0; k < j; ++k) a[j][j] -= a[j][k] * a[j][k];
    a[j][j] = std::sqrt(a[j][j]);
    for (std::size_t i = j + 1; i < n; ++i) {
      for (std::size_t k = 0; k < j; ++k) a[i][j] -= a[i][k] * a[j][k];
      a[i][j] /= a[j][j];
    }
  }
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t k = 0; k < i; ++k) b[i] -= a[i][k] * b[k];
    b[i] /= a[i][i];
  }
  for (std::size_t i = n; i-- > 0;) {
    for (std::size_t k = i + 1; k < n; ++k) b[i] -= a[k][i] * b[k];
    b[i] /= a[i][i];
  }
  return b;
}

// Maximum likelihood by Newton steps with the expected information (scoring); the constant comes first.
std::vector<double> AjusterParNewton(const Observations& o, FonctionDeLien lien) {
  const std::size_t n = o.parametres + 1;
  std::vector<double> b(n);
  if (lien == FonctionDeLien::Lineaire) b[0] = 0.5;
  for (int tour = 0; tour < 60; ++tour) {
    std::vector<std::vector<double>> information(n, std::vector<double>(n));
    std::vector<double> gradient(n);
    for (std::size_t r = 0; r < o.profils.size(); ++r) {
      std::vector<double> x(n);
      x[0] = 1;
      for (const Observations::Terme& t : o.Termes(o.profils[r])) x[t.rang + 1] = t.valeur;
      double score = 0;
      for (std::size_t i = 0; i < n; ++i) score += b[i] * x[i];
      const double p = Probabilite(lien, score);
      const double derivee = lien == FonctionDeLien::Lineaire ? 1 : p * (1 - p);  // of p
      for (std::size_t i = 0; i < n; ++i) {
        gradient[i] += o.poids[r] * (o.reponses[r] - p) * derivee / (p * (1 - p)) * x[i];
        for (std::size_t j = 0; j < n; ++j)
          information[i][j] += o.poids[r] * derivee * derivee / (p * (1 - p)) * x[i] * x[j];
      }
    }
    const std::vector<double> pas = Resoudre(information, gradient);
    for (std::size_t i = 0; i < n; ++i) b[i] += pas[i];
  }
  return b;
}

// Written from the definition, nothing kept from one value to the next.
double ValeurComplete(const Observations& o, FonctionDeLien lien, const Parametres& parametres) {
  double somme = 0;
  for (std::size_t r = 0; r < o.profils.size(); ++r) {
    double score = parametres.alpha;
    for (const Observations::Terme& t : o.Termes(o.profils[r])) score += parametres.betas[t.rang] * t.valeur;
    double p = Probabilite(lien, score);
    if (p >= 1) p = 0.99999;
    if (p <= 0) p = 0.00001;
    somme += o.poids[r] * (o.reponses[r] * std::log(p) + (1 - o.reponses[r]) * std::log(1 - p));
  }
  return somme;
}

const Suivi kSansSuivi = [](Mouvement, double, double) {};

TEST(Vraisemblance, MeneLaOuMeneNewton) {
  for (unsigned graine = 1; graine <= 20; ++graine)
    for (const FonctionDeLien lien : {FonctionDeLien::Lineaire, FonctionDeLien::Logistique}) {
      const Observations o = Enquete(graine, lien == FonctionDeLien::Lineaire);
      const std::vector<double> exacts = AjusterParNewton(o, lien);
      Parametres depart;
      depart.alpha = lien == FonctionDeLien::Lineaire ? 0.5 : 0;
      depart.betas.resize(o.parametres);
      const Ajustement ajustement = Maximiser(o, lien, depart, kSansSuivi);
      EXPECT_FALSE(ajustement.interrompu);
      // A search stops where no single step of 0.0001 rises: along a ridge several of them may be missing.
      constexpr double kTolerance = 0.0012;
      EXPECT_NEAR(ajustement.parametres.alpha, exacts[0], kTolerance) << "seed " << graine;
      for (std::size_t j = 0; j < o.parametres; ++j)
        EXPECT_NEAR(ajustement.parametres.betas[j], exacts[j + 1], kTolerance) << "seed " << graine;
      const Parametres sommet{exacts[0], std::vector<double>(exacts.begin() + 1, exacts.end())};
      EXPECT_NEAR(ajustement.logVraisemblance, ValeurComplete(o, lien, sommet), 0.001);
      EXPECT_LE(ajustement.logVraisemblance, ValeurComplete(o, lien, sommet));
    }
}

TEST(Vraisemblance, ChaqueValeurEstCelleDUnCalculComplet) {
  for (const FonctionDeLien lien : {FonctionDeLien::Lineaire, FonctionDeLien::Logistique}) {
    const Observations o = Enquete(7, false);
    Parametres parametres;
    parametres.betas.resize(o.parametres);
    LogVraisemblance vraisemblance(o, lien, parametres);
    std::mt19937 hasard(3);
    for (int pas = 0; pas < 300; ++pas) {
      const double valeur = static_cast<double>(hasard() % 2001) / 500 - 2;
      const std::size_t rang = hasard() % (o.parametres + 1);
      if (rang == o.parametres) {
        parametres.alpha = valeur;
        vraisemblance.PoserAlpha(valeur);
      } else {
        parametres.betas[rang] = valeur;
        vraisemblance.PoserBeta(rang, valeur);
      }
      ASSERT_EQ(vraisemblance.Valeur(), ValeurComplete(o, lien, parametres)) << "step " << pas;
    }
  }
}

// Everybody with the regressor says yes and nobody else does: the likelihood rises for ever.
TEST(Vraisemblance, SArreteSurUneSeparationComplete) {
  Observations o;
  o.parametres = 1;
  o.termes = {{0, 1}};
  o.departs = {0, 1, 1};
  o.profils = {0, 1};
  o.poids = {40, 60};
  o.reponses = {1, 0};
  const Ajustement libre = Maximiser(o, FonctionDeLien::Logistique, {0, {0}}, kSansSuivi);
  EXPECT_TRUE(std::isfinite(libre.logVraisemblance));
  EXPECT_GT(libre.logVraisemblance, -0.01);
  const Ajustement bornee =
      Maximiser(Enquete(1, false), FonctionDeLien::Logistique, {0, std::vector<double>(6)}, kSansSuivi, 2);
  EXPECT_TRUE(bornee.interrompu);
}

}  // namespace

}  // namespace quelvar::regression
