#include "factor/analyse/premier.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "core/chiffres/nombres.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

// Eigenvalues of the table in descending order, by the rotations of Jacobi on the whole of its symmetric form.
std::vector<double> ToutesLesValeurs(const Matrice& d, const Ecarts& ecarts) {
  const std::size_t p = d.Colonnes();
  std::vector<std::vector<double>> g(p, std::vector<double>(p));
  const auto nonNul = [](double poids) { return poids == 0 ? 1 : poids; };
  for (std::size_t i = 0; i < d.Lignes(); ++i)
    for (std::size_t j = 0; j < p; ++j)
      for (std::size_t k = 0; k < p; ++k)
        g[j][k] += d(i, j) * d(i, k) / nonNul(ecarts.lignes.poids[i]) /
                   std::sqrt(nonNul(ecarts.colonnes.poids[j]) * nonNul(ecarts.colonnes.poids[k]));
  for (int tour = 0; tour < 100; ++tour)
    for (std::size_t a = 0; a < p; ++a)
      for (std::size_t b = a + 1; b < p; ++b) {
        if (std::fabs(g[a][b]) < 1e-300) continue;
        const double phi = std::atan2(2 * g[a][b], g[b][b] - g[a][a]) / 2;
        const double c = std::cos(phi);
        const double s = std::sin(phi);
        for (std::size_t k = 0; k < p; ++k) {
          const double x = g[k][a];
          g[k][a] = c * x - s * g[k][b];
          g[k][b] = s * x + c * g[k][b];
        }
        for (std::size_t k = 0; k < p; ++k) {
          const double x = g[a][k];
          g[a][k] = c * x - s * g[b][k];
          g[b][k] = s * x + c * g[b][k];
        }
        if (tour > 12 && std::fabs(g[a][b]) < 1e-30) g[a][b] = g[b][a] = 0;
      }
  std::vector<double> valeurs;
  for (std::size_t j = 0; j < p; ++j) valeurs.push_back(g[j][j]);
  std::ranges::sort(valeurs, std::greater<>());
  return valeurs;
}

enum class Genre { Hasard, DiagonaleEtConstante, Blocs, ColonneVide, ColonneProportionnelle, Nombre };

Matrice Table(Genre genre, std::mt19937& hasard) {
  const auto tirer = [&](int de, int a) { return std::uniform_int_distribution<int>(de, a)(hasard); };
  const auto n = static_cast<std::size_t>(tirer(2, 9));
  const auto p = genre == Genre::DiagonaleEtConstante ? n : static_cast<std::size_t>(tirer(2, 9));
  Matrice t(n, p);
  const int constante = tirer(1, 5);
  const int diagonale = tirer(1, 30);
  const bool inegale = tirer(0, 1) == 1;
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = 0; j < p; ++j) {
      t(i, j) = tirer(0, 20);
      if (genre == Genre::DiagonaleEtConstante)
        t(i, j) = constante + (i == j ? diagonale + (inegale ? tirer(0, 1) : 0) : 0);
      if (genre == Genre::Blocs) t(i, j) = i % 2 == j % 2 ? constante + (inegale ? tirer(0, 2) : 0) : 0;
    }
  if (genre == Genre::ColonneVide)
    for (std::size_t i = 0; i < n; ++i) t(i, static_cast<std::size_t>(tirer(0, 1)) * (p - 1)) = t(i, 0) = 0;
  if (genre == Genre::ColonneProportionnelle)
    for (std::size_t i = 0; i < n; ++i) {
      t(i, 0) = 0;
      for (std::size_t j = 1; j < p; ++j) t(i, 0) += t(i, j);
    }
  t(n - 1, p - 1) += 1;
  return t;
}

TEST(PremierePaire, FactorsAreThoseOfTheTableInDescendingOrder) {
  std::mt19937 hasard(12);
  int autres = 0;
  for (int essai = 0; essai < 10000; ++essai) {
    const auto genre = static_cast<Genre>(essai % static_cast<int>(Genre::Nombre));
    Matrice d = Table(genre, hasard);
    const TypeAnalyse type = essai % 3 == 0 ? TypeAnalyse::Acp : TypeAnalyse::Afc;
    Ecarts ecarts = CalculerEcarts(d, type);
    const double inertie = ecarts.Inertie(type);
    const std::vector<double> attendues = ToutesLesValeurs(d, ecarts);
    const std::size_t facteurs = std::min({d.Lignes() - 1, d.Colonnes() - 1, std::size_t{5}});
    for (std::size_t k = 0; k < facteurs; ++k) {
      ecarts.temoin = LigneTemoin(d);
      const VecteursSinguliers iteration = Iterer(d, ecarts, 2000, [](std::int64_t) {});
      const VecteursSinguliers v = PremierePaire(d, ecarts, inertie, iteration);
      if (v.valeur != iteration.valeur) ++autres;
      const double valeur = v.valeur * v.valeur;
      // The same printed digits, beside a rounding that falls on the other side.
      if (Arrondir(valeur, 6) != Arrondir(attendues[k], 6)) {
        ASSERT_NEAR(valeur, attendues[k], 1e-8) << "table " << essai << " factor " << k + 1;
      }
      if (attendues[k] > 1e-7 * inertie) {
        ASSERT_NEAR(valeur / attendues[k], 1, 3e-6) << "table " << essai << " factor " << k + 1;
      }
      std::vector<double> f = v.lignes;
      std::vector<double> g = v.colonnes;
      for (double& x : f) x *= v.valeur;
      for (double& x : g) x *= v.valeur;
      Deflater(d, ecarts, {f, g, v.valeur});
    }
  }
  EXPECT_GT(autres, 100) << "tables on which the iteration alone is wrong";
}

TEST(PremierePaire, ARightResultStaysAsItIs) {
  std::mt19937 hasard(5);
  for (int essai = 0; essai < 200; ++essai) {
    Matrice d(40, 30);
    for (double& x : d.Valeurs()) x = std::uniform_int_distribution<int>(0, 50)(hasard);
    for (std::size_t i = 0; i < 20; ++i)
      for (std::size_t j = 0; j < 10; ++j) d(i, j) += 40;
    const Ecarts ecarts = CalculerEcarts(d, TypeAnalyse::Afc);
    const VecteursSinguliers iteration = Iterer(d, ecarts, 100000, [](std::int64_t) {});
    EXPECT_EQ(PremierePaire(d, ecarts, ecarts.phiDeux, iteration).lignes, iteration.lignes);
  }
}

TEST(PremierePaire, TheSignFollowsTheStart) {
  // Column 1 is proportional to the margins: the start is the same for every row, and orthogonal to every factor.
  Matrice d(3, 3);
  const double table[3][3] = {{10, 8, 2}, {10, 2, 8}, {10, 5, 5}};
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) d(i, j) = table[i][j];
  const Ecarts ecarts = CalculerEcarts(d, TypeAnalyse::Afc);
  VecteursSinguliers rien;
  rien.lignes.assign(3, 0);
  rien.colonnes.assign(3, 0);
  const VecteursSinguliers v = PremierePaire(d, ecarts, ecarts.phiDeux, rien);
  // Profiles 1/2, 0.4, 0.1 and 1/2, 0.1, 0.4 around 1/2, 1/4, 1/4: 2/3 (0.15^2 / 0.25) 2 = 0.12.
  EXPECT_NEAR(v.valeur * v.valeur, 0.12, 1e-12);
  EXPECT_GT(v.lignes[0], 0) << "the first of the rows that tell most is where the start puts it";
}

}  // namespace
}  // namespace quelvar
