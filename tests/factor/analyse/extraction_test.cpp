#include "factor/analyse/extraction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "core/panne/erreur.h"
#include "support/erreur.h"
#include "support/tableau.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

using essai::MatriceDe;

constexpr auto kSansSuivi = [](std::int64_t) {};

struct FacteurLu {
  double valeurPropre;
  std::vector<double> f, g;
};

std::vector<FacteurLu> Extraire(Matrice d, TypeAnalyse type, std::size_t nombre) {
  Ecarts ecarts = CalculerEcarts(d, type);
  std::vector<FacteurLu> facteurs;
  for (std::size_t k = 0; k < nombre; ++k) {
    ecarts.temoin = LigneTemoin(d);
    const VecteursSinguliers v = Iterer(d, ecarts, 1'000'000, kSansSuivi);
    FacteurLu facteur{v.valeur * v.valeur, v.lignes, v.colonnes};
    for (double& f : facteur.f) f *= v.valeur;
    for (double& g : facteur.g) g *= v.valeur;
    Deflater(d, ecarts, {facteur.f, facteur.g, v.valeur});
    facteurs.push_back(facteur);
  }
  return facteurs;
}

// Staff groups by smoking: M. J. Greenacre, "Theory and Applications of Correspondence Analysis", 1984, section 3.1.
const Matrice& Fumeurs() {
  static const Matrice table =
      MatriceDe({{4, 2, 3, 2}, {4, 3, 7, 4}, {25, 10, 12, 4}, {18, 24, 33, 13}, {10, 6, 7, 2}});
  return table;
}

TEST(Extraction, PublishedInertiasAndCoordinates) {
  const std::vector<FacteurLu> facteurs = Extraire(Fumeurs(), TypeAnalyse::Afc, 3);
  EXPECT_NEAR(facteurs[0].valeurPropre, 0.074759, 5e-7);
  EXPECT_NEAR(facteurs[1].valeurPropre, 0.010017, 5e-7);
  EXPECT_NEAR(facteurs[2].valeurPropre, 0.000414, 5e-7);
  const double groupes[] = {0.066, -0.259, 0.381, -0.233, 0.201};
  const double tabac[] = {0.393, -0.099, -0.196, -0.294};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(facteurs[0].f[i], groupes[i], 5e-4) << i;
  for (std::size_t j = 0; j < 4; ++j) EXPECT_NEAR(facteurs[0].g[j], tabac[j], 5e-4) << j;

  // Hair and eye colour of 592 students (R. D. Snee, "Graphical Display of Two-Way Contingency Tables", The American
  // Statistician 28, 1974), inertias as every manual of correspondence analysis prints them.
  const Matrice cheveux = MatriceDe({{68, 20, 15, 5}, {119, 84, 54, 29}, {26, 17, 14, 14}, {7, 94, 10, 16}});
  Matrice d = cheveux;
  EXPECT_NEAR(CalculerEcarts(d, TypeAnalyse::Afc).phiDeux, 0.233598, 5e-7);
  const std::vector<FacteurLu> couleurs = Extraire(cheveux, TypeAnalyse::Afc, 3);
  EXPECT_NEAR(couleurs[0].valeurPropre, 0.208773, 5e-7);
  EXPECT_NEAR(couleurs[1].valeurPropre, 0.022227, 5e-7);
  EXPECT_NEAR(couleurs[2].valeurPropre, 0.002598, 5e-7);
}

TEST(Extraction, FactorsAreOrthogonalAndAddUpToTheInertia) {
  std::mt19937 hasard(7);
  Matrice table(9, 6);
  for (double& cellule : table.Valeurs()) cellule = static_cast<double>(hasard() % 50);
  for (const TypeAnalyse type : {TypeAnalyse::Afc, TypeAnalyse::Acp}) {
    Matrice d = table;
    const Ecarts ecarts = CalculerEcarts(d, type);
    const std::vector<FacteurLu> facteurs = Extraire(table, type, 5);
    double somme = 0;
    for (std::size_t k = 0; k < facteurs.size(); ++k) {
      somme += facteurs[k].valeurPropre;
      for (std::size_t l = 0; l <= k; ++l) {
        double produit = 0;
        for (std::size_t i = 0; i < 9; ++i) produit += ecarts.lignes.poids[i] * facteurs[k].f[i] * facteurs[l].f[i];
        EXPECT_NEAR(produit, k == l ? facteurs[k].valeurPropre : 0, 1e-5 * facteurs[0].valeurPropre) << k << " " << l;
      }
    }
    if (type == TypeAnalyse::Afc) {
      EXPECT_NEAR(somme, ecarts.phiDeux, 1e-9);  // five factors are all there are
    }
    double total = 0;
    for (const double inertie : ecarts.colonnes.inertie) total += inertie;
    EXPECT_NEAR(total, ecarts.Inertie(type), 1e-15);
  }
}

// The blocks of rows must not change one bit of a sum: a stop test, and so a number of rounds, hangs on it.
TEST(Extraction, SumsRunInIndexOrder) {
  std::mt19937_64 hasard(11);
  std::uniform_real_distribution<double> loi(0, 100);
  for (const auto& [n, p] : {std::pair<std::size_t, std::size_t>{2, 3}, {8, 8}, {13, 21}, {31, 6}}) {
    Matrice d(n, p);
    for (double& cellule : d.Valeurs()) cellule = loi(hasard);
    const Ecarts ecarts = CalculerEcarts(d, TypeAnalyse::Acp);
    const VecteursSinguliers un = Iterer(d, ecarts, 1, kSansSuivi);
    std::vector<double> b(p);
    double normeB = 0;
    for (std::size_t j = 0; j < p; ++j) {
      for (std::size_t i = 0; i < n; ++i) b[j] += d(i, j) * (d(i, 0) < 0 ? -1.0 : 1.0);
      normeB += b[j] * b[j];
    }
    for (double& v : b) v /= std::sqrt(normeB);
    EXPECT_EQ(un.colonnes, b) << n << " x " << p;
    double normeA = 0;
    for (std::size_t i = 0; i < n; ++i) {
      double somme = 0;
      for (std::size_t j = 0; j < p; ++j) somme += d(i, j) * b[j];
      normeA += somme * somme;
    }
    EXPECT_EQ(un.valeur, std::sqrt(normeA)) << n << " x " << p;
  }
}

TEST(Extraction, StopTestFollowsTheRowOfTheLargestDeviation) {
  // Equal deviations: the first row, although a later column holds its largest.
  EXPECT_EQ(LigneTemoin(MatriceDe({{0.1, -0.3}, {0.3, 0.2}})), 0u);
  EXPECT_EQ(LigneTemoin(MatriceDe({{0.1, -0.2}, {-0.3, 0.2}})), 1u);
  EXPECT_EQ(LigneTemoin(Matrice(3, 2)), 0u);
}

TEST(Extraction, ARunWithoutConvergenceIsToldAndStops) {
  Matrice d = Fumeurs();
  const Ecarts ecarts = CalculerEcarts(d, TypeAnalyse::Afc);
  std::int64_t tours = 0;
  EXPECT_FALSE(Iterer(d, ecarts, 2, [&](std::int64_t tour) { tours = tour; }).converge);
  EXPECT_EQ(tours, 2);
  EXPECT_TRUE(Iterer(d, ecarts, 1000, kSansSuivi).converge);
  for (const std::size_t cote : {std::size_t{2}, std::size_t{1500}, std::size_t{5000}})
    EXPECT_GE(ToursAuPlus(Matrice(cote, cote)), 50'000);
}

TEST(Extraction, DegenerateTables) {
  // An independent table leaves nothing to extract; a row and a column of zeros stay at 0 on every factor.
  const std::vector<FacteurLu> nul = Extraire(MatriceDe({{1, 1}, {1, 1}}), TypeAnalyse::Afc, 1);
  EXPECT_EQ(nul[0].valeurPropre, 0);
  EXPECT_EQ(nul[0].f, std::vector<double>(2, 0));
  const std::vector<FacteurLu> creux = Extraire(MatriceDe({{3, 0, 1}, {0, 0, 0}, {1, 0, 3}}), TypeAnalyse::Afc, 1);
  EXPECT_NEAR(creux[0].valeurPropre, 0.25, 1e-12);
  EXPECT_EQ(creux[0].f[1], 0);
  EXPECT_EQ(creux[0].g[1], 0);
  // Margins of both signs leave the vectors without a norm.
  EXPECT_EQ(essai::NumeroLeve([] { Extraire(MatriceDe({{1, -9}, {9, 2}}), TypeAnalyse::Afc, 1); }), kArgumentIncorrect);
  EXPECT_EQ(essai::NumeroLeve([] {
              Extraire(MatriceDe({{1e308, 1e308}, {1e308, 1}}), TypeAnalyse::Afc, 1);
            }),
            kDepassementCapacite);
}

TEST(Extraction, SupplementaryElementsFollowTheTransitionFormulas) {
  // National averages and drinkers of the same book: row and columns beside the table.
  Matrice d = Fumeurs();
  Matrice colonnes = MatriceDe({{0, 11}, {1, 17}, {5, 46}, {10, 78}, {7, 18}});
  std::vector<float> ligne = {42, 29, 20, 9};
  Ecarts ecarts = CalculerEcarts(d, TypeAnalyse::Afc);
  CalculerEcartsLigneSup(ligne, TypeAnalyse::Afc, ecarts);
  CalculerEcartsColonnesSup(colonnes, TypeAnalyse::Afc, ecarts);
  const VecteursSinguliers v = Iterer(d, ecarts, 1000, kSansSuivi);
  // Mean of the column coordinates with the profile of the row, over s; and the other way round.
  const double profil[] = {0.42, 0.29, 0.20, 0.09};
  double attendu = 0;
  for (std::size_t j = 0; j < 4; ++j) attendu += profil[j] * v.colonnes[j];
  EXPECT_NEAR(v.valeur * ProjeterLigneSup(ligne, ecarts, v, 5), attendu, 1e-7);
  EXPECT_NEAR(attendu, 0.258, 5e-4);
  const std::vector<double> b = ProjeterColonnesSup(colonnes, ecarts, v);
  double boivent = 0;
  const double groupes[] = {11, 17, 46, 78, 18};
  for (std::size_t i = 0; i < 5; ++i) boivent += groupes[i] / 170 * v.lignes[i];
  EXPECT_NEAR(v.valeur * b[1], boivent, 1e-6);

  // Once deflated they carry nothing of the factor any more.
  std::vector<double> f = v.lignes;
  std::vector<double> g = v.colonnes;
  f.push_back(ProjeterLigneSup(ligne, ecarts, v, 5));
  g.insert(g.end(), b.begin(), b.end());
  for (double& x : f) x *= v.valeur;
  for (double& x : g) x *= v.valeur;
  DeflaterLigneSup(ligne, ecarts, {f, g, v.valeur}, 5);
  Deflater(colonnes, ecarts, {f, g, v.valeur}, 4);
  EXPECT_NEAR(ProjeterLigneSup(ligne, ecarts, v, 5), 0, 1e-6);
  EXPECT_NEAR(ProjeterColonnesSup(colonnes, ecarts, v)[0], 0, 1e-6);
}

TEST(Extraction, ContributionsAreCappedAbove1000) {
  EXPECT_EQ(Contribution(1, 1, 1), 1000);
  EXPECT_EQ(Contribution(1.0005, 1, 1), 999);
  EXPECT_EQ(Contribution(0.0005, 1, 1), 0);  // a half goes to the even side
  EXPECT_EQ(Contribution(0.0015, 1, 1), 2);
  EXPECT_EQ(Contribution(0.5, 3, 0), 0);
  EXPECT_EQ(Cos2(0.25, 2, 1), 1000);
  EXPECT_EQ(Cos2(0.3, 2, 1), 999);
  EXPECT_EQ(Cos2(0.3, 2, 0), 0);
  EXPECT_EQ(Cos2(0.3, 2, -1), 0);
}

}  // namespace
}  // namespace quelvar
