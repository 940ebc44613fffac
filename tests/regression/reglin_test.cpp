// Least squares against the certified values of published reference data, and the words of the tests at their bounds.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/programme/erreur.h"
#include "core/texte/nombres.h"
#include "regression/reglin/moindrescarres.h"
#include "regression/reglin/variables.h"
#include "support/erreur.h"

namespace quelvar::regression {

namespace {

struct Ajustee {
  std::optional<AjustementLineaire> ajustement;
  double ecartResiduel = 0;  // residual standard deviation
};

// Each row: the explanatory values, then the explained one.
Ajustee Ajuster(const std::vector<std::vector<double>>& lignes) {
  const std::size_t p = lignes[0].size() - 1;
  Moments moments(p);
  for (std::vector<double> ligne : lignes) {
    ligne.insert(ligne.end() - 1, 1);
    moments.Ajouter(ligne);
  }
  const Matrice toutes = moments.Symetrique();
  Matrice explicatives(p + 1, p + 1);
  for (std::size_t i = 0; i <= p; ++i)
    for (std::size_t j = 0; j <= p; ++j) explicatives(i, j) = toutes(i, j);
  const std::optional<Matrice> inverse = InverseMatrice(explicatives);
  if (!inverse) return {};
  Ajustee a{AjusterMoindresCarres(toutes, DisperserMoments(toutes), *inverse)};
  a.ecartResiduel = std::sqrt(a.ajustement->residuelle * a.ajustement->individus / a.ajustement->degres);
  return a;
}

double EcartRelatif(double valeur, double certifiee) { return std::fabs(valeur / certifiee - 1); }

// Source of the data and of the certified values: Statistical Reference Datasets, National Institute of Standards and
// Technology (public domain), linear regression.
TEST(Reglin, Norris) {
  const Ajustee a =
      Ajuster({{0.2, 0.1},     {337.4, 338.8}, {118.2, 118.1}, {884.6, 888.0}, {10.1, 9.2},    {226.5, 228.1},
               {666.3, 668.5}, {996.3, 998.5}, {448.6, 449.1}, {777.0, 778.9}, {558.2, 559.2}, {0.4, 0.3},
               {0.6, 0.1},     {775.5, 778.1}, {666.9, 668.8}, {338.0, 339.3}, {447.5, 448.9}, {11.6, 10.8},
               {556.0, 557.7}, {228.1, 228.3}, {995.8, 998.0}, {887.6, 888.8}, {120.2, 119.6}, {0.3, 0.3},
               {0.3, 0.6},     {556.8, 557.6}, {339.1, 339.3}, {887.2, 888.0}, {999.0, 998.5}, {779.0, 778.9},
               {11.1, 10.2},   {118.3, 117.6}, {229.2, 228.9}, {669.1, 668.4}, {448.9, 449.2}, {0.5, 0.2}});
  ASSERT_TRUE(a.ajustement);
  EXPECT_LT(EcartRelatif(a.ajustement->parametres[1], -0.262323073774029), 1e-9);
  EXPECT_LT(EcartRelatif(a.ajustement->parametres[0], 1.00211681802045), 1e-12);
  EXPECT_LT(EcartRelatif(a.ajustement->ecartsTypes[1], 0.232818234301152), 1e-7);
  EXPECT_LT(EcartRelatif(a.ajustement->ecartsTypes[0], 0.429796848199937E-03), 1e-7);
  EXPECT_LT(EcartRelatif(a.ecartResiduel, 0.884796396144373), 1e-7);
  EXPECT_LT(EcartRelatif(a.ajustement->R2(), 0.999993745883712), 1e-12);
  EXPECT_LT(EcartRelatif(a.ajustement->f, 5436385.54079785), 1e-7);
}

// Six nearly collinear series. Moments about 0 lose about ten of the sixteen figures here; five are asked for.
TEST(Reglin, Longley) {
  const Ajustee a = Ajuster({{83.0, 234289, 2356, 1590, 107608, 1947, 60323},
                             {88.5, 259426, 2325, 1456, 108632, 1948, 61122},
                             {88.2, 258054, 3682, 1616, 109773, 1949, 60171},
                             {89.5, 284599, 3351, 1650, 110929, 1950, 61187},
                             {96.2, 328975, 2099, 3099, 112075, 1951, 63221},
                             {98.1, 346999, 1932, 3594, 113270, 1952, 63639},
                             {99.0, 365385, 1870, 3547, 115094, 1953, 64989},
                             {100.0, 363112, 3578, 3350, 116219, 1954, 63761},
                             {101.2, 397469, 2904, 3048, 117388, 1955, 66019},
                             {104.6, 419180, 2822, 2857, 118734, 1956, 67857},
                             {108.4, 442769, 2936, 2798, 120445, 1957, 68169},
                             {110.8, 444546, 4681, 2637, 121950, 1958, 66513},
                             {112.6, 482704, 3813, 2552, 123366, 1959, 68655},
                             {114.2, 502601, 3931, 2514, 125368, 1960, 69564},
                             {115.7, 518173, 4806, 2572, 127852, 1961, 69331},
                             {116.9, 554894, 4007, 2827, 130081, 1962, 70551}});
  ASSERT_TRUE(a.ajustement);
  const double certifies[] = {15.0618722713733,       -0.358191792925910E-01, -2.02022980381683, -1.03322686717359,
                              -0.511041056535807E-01, 1829.15146461355,       -3482258.63459582};
  const double erreurs[] = {84.9149257747669,  0.334910077722432E-01, 0.488399681651699, 0.214274163161675,
                            0.226073200069370, 455.478499142212,      890420.383607373};
  for (std::size_t i = 0; i < 7; ++i) {
    EXPECT_LT(EcartRelatif(a.ajustement->parametres[i], certifies[i]), 1e-5) << i;
    EXPECT_LT(EcartRelatif(a.ajustement->ecartsTypes[i], erreurs[i]), 1e-5) << i;
  }
  EXPECT_LT(EcartRelatif(a.ecartResiduel, 304.854073561965), 1e-5);
  EXPECT_LT(EcartRelatif(a.ajustement->R2(), 0.995479004577296), 1e-8);
}

// A polynomial of degree 10: the pivots fall below what rounding leaves of them, and the fit is refused.
TEST(Reglin, UnPolynomeDeDegreDixEstRefuse) {
  const double x[] = {-6.860120914, -4.324130045, -4.358625055, -4.358426747, -6.955852379, -6.661145254, -6.355462942,
                      -6.118102026, -7.115148017, -6.815308569, -6.519993057, -6.204119983, -5.853871964, -6.109523091,
                      -5.79832982,  -5.482672118, -5.171791386, -4.851705903, -4.517126416, -4.143573228, -3.709075441,
                      -3.499489089, -6.300769497, -5.953504836, -5.642065153, -5.031376979, -4.680685696, -4.329846955};
  std::vector<std::vector<double>> lignes;
  for (const double valeur : x) {
    std::vector<double> ligne;
    for (int degre = 1; degre <= 10; ++degre) ligne.push_back(std::pow(valeur, degre));
    ligne.push_back(0.8);
    lignes.push_back(ligne);
  }
  EXPECT_FALSE(Ajuster(lignes).ajustement);
}

TEST(Reglin, InverseEtMatricesSansInverse) {
  const Matrice matrice(3, 3, {4, 1, -2, 1, 3, 0.5, -2, 0.5, 9});
  const std::optional<Matrice> inverse = InverseMatrice(matrice);
  ASSERT_TRUE(inverse);
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) {
      double produit = 0;
      for (std::size_t k = 0; k < 3; ++k) produit += matrice(i, k) * (*inverse)(k, j);
      EXPECT_NEAR(produit, i == j ? 1 : 0, 1e-14);
    }
  // Off the diagonal only: the pivots are not where the rows are.
  const std::optional<Matrice> echange = InverseMatrice(Matrice(2, 2, {1, 3, 7, 1}));
  ASSERT_TRUE(echange);
  EXPECT_NEAR((*echange)(0, 1), 3.0 / 20, 1e-15);
  EXPECT_FALSE(InverseMatrice(Matrice(2, 2, {1, 2, 2, 4})));
  EXPECT_FALSE(InverseMatrice(Matrice(2, 2, {0, 0, 0, 0})));
  // A constant column of thirds beside another variable: rounding leaves its pivot next to 0.
  std::vector<std::vector<double>> lignes;
  for (int i = 0; i < 20; ++i) lignes.push_back({1.0 / 3, 0.1 * i * i, 1.0 * i});
  EXPECT_FALSE(Ajuster(lignes).ajustement);
}

TEST(Reglin, MarquesAuxBornes) {
  const std::pair<double, std::string_view> cas[] = {{0, "Non sign."},  {1.6449, "Non sign."}, {1.645, " *"},
                                                     {-1.9599, " *"},   {1.96, " * *"},        {2.5759, " * *"},
                                                     {2.576, " * * *"}, {-2.85, " * * *"},     {40, " * * *"}};
  for (const auto& [t, marque] : cas) EXPECT_EQ(MarqueT(t), marque) << t;
  EXPECT_EQ(TexteDeF(0.51), "non significatif");
  EXPECT_EQ(TexteDeF(0.5), " * *");
  EXPECT_EQ(TexteDeF(0.1001), " * *");
  EXPECT_EQ(TexteDeF(0.1), "* * *");
  // Upper tails of tables of F: 5 % and 1 %; the approximation gives two figures.
  EXPECT_NEAR(ProbabiliteF(4.96, 1, 10), 0.05, 0.004);
  EXPECT_NEAR(ProbabiliteF(10.04, 1, 10), 0.01, 0.002);
  EXPECT_NEAR(ProbabiliteF(2.71, 5, 20), 0.05, 0.002);
  EXPECT_NEAR(ProbabiliteF(1, 7, 7), 0.5, 1e-9);
  for (const double f : {0.2, 0.7, 3.0}) EXPECT_NEAR(ProbabiliteF(f, 3, 8) + ProbabiliteF(1 / f, 8, 3), 1, 1e-12);
  EXPECT_EQ(essai::NumeroLeve([] { ProbabiliteF(-1, 3, 8); }), kArgumentIncorrect);
}

TEST(Reglin, ValeurDUnChampEstCelleDeLaLectureCommune) {
  for (const std::string_view champ : {"",
                                       "   ",
                                       "12",
                                       "  -3.25",
                                       "1 2.5",
                                       ".",
                                       "-",
                                       "5.",
                                       ".75",
                                       "1,5",
                                       "abc",
                                       "2.5e2",
                                       "1D1",
                                       "+4",
                                       "--1",
                                       "1.2.3",
                                       "0.000000000001",
                                       "123456789012345",
                                       "1234567890123456789",
                                       "3.1415926535897931",
                                       " 12 ",
                                       "\t7",
                                       "1.5 "})
    EXPECT_EQ(ValeurDuChamp(champ), ValeurDe(champ)) << champ;
}

}  // namespace

}  // namespace quelvar::regression
