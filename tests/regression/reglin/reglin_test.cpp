// Least squares against the certified values of published reference data, and the words of the tests at their bounds.
#include "regression/reglin/reglin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "regression/reglin/moindrescarres.h"
#include "regression/reglin/variables.h"
#include "support/erreur.h"
#include "support/programme.h"

namespace quelvar::regression {

namespace {

struct Ajustee {
  std::optional<AjustementLineaire> ajustement;
  double ecartResiduel = 0;  // residual standard deviation
  std::size_t perdues = 0;   // variables that cost digits
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
  const Dispersion dispersion = DisperserMoments(moments);
  const std::optional<Matrice> inverse = InverseDesExplicatives(toutes, dispersion);
  if (!inverse) return {};
  Ajustee a{AjusterMoindresCarres(toutes, dispersion, *inverse)};
  TesterAjustement(*inverse, *a.ajustement);
  a.perdues = VariablesQuiPerdent(toutes, *inverse).size();
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

// A polynomial of degree 10, the hardest of these data: the pivots fall below what rounding leaves of them, and the fit
// is refused. Degree 4, against parameters computed in exact fractions, keeps seven figures; in between the doubt is
// told.
TEST(Reglin, Filip) {
  const std::pair<double, double> points[] = {
      {-6.860120914, 0.8116}, {-4.324130045, 0.9072}, {-4.358625055, 0.9052}, {-4.358426747, 0.9039},
      {-6.955852379, 0.8053}, {-6.661145254, 0.8377}, {-6.355462942, 0.8667}, {-6.118102026, 0.8809},
      {-7.115148017, 0.7975}, {-6.815308569, 0.8162}, {-6.519993057, 0.8515}, {-6.204119983, 0.8766},
      {-5.853871964, 0.8885}, {-6.109523091, 0.8859}, {-5.79832982, 0.8959},  {-5.482672118, 0.8913},
      {-5.171791386, 0.8959}, {-4.851705903, 0.8971}, {-4.517126416, 0.9021}, {-4.143573228, 0.909},
      {-3.709075441, 0.9139}, {-3.499489089, 0.9199}, {-6.300769497, 0.8692}, {-5.953504836, 0.8872},
      {-5.642065153, 0.89},   {-5.031376979, 0.891},  {-4.680685696, 0.8977}, {-4.329846955, 0.9035},
      {-3.928486195, 0.9078}, {-8.56735134, 0.7675},  {-8.363211311, 0.7705}, {-8.107682739, 0.7713},
      {-7.823908741, 0.7736}, {-7.522878745, 0.7775}, {-7.218819279, 0.7841}, {-6.920818754, 0.7971},
      {-6.628932138, 0.8329}, {-6.323946875, 0.8641}, {-5.991399828, 0.8804}, {-8.781464495, 0.7668},
      {-8.663140179, 0.7633}, {-8.473531488, 0.7678}, {-8.247337057, 0.7697}, {-7.971428747, 0.77},
      {-7.676129393, 0.7749}, {-7.352812702, 0.7796}, {-7.072065318, 0.7897}, {-6.774174009, 0.8131},
      {-6.478861916, 0.8498}, {-6.159517513, 0.8741}, {-6.835647144, 0.8061}, {-6.53165267, 0.846},
      {-6.224098421, 0.8751}, {-5.910094889, 0.8856}, {-5.598599459, 0.8919}, {-5.290645224, 0.8934},
      {-4.974284616, 0.894},  {-4.64454848, 0.8957},  {-4.290560426, 0.9047}, {-3.885055584, 0.9129},
      {-3.408378962, 0.9209}, {-3.13200249, 0.9219},  {-8.726767166, 0.7739}, {-8.66695597, 0.7681},
      {-8.511026475, 0.7665}, {-8.165388579, 0.7703}, {-7.886056648, 0.7702}, {-7.588043762, 0.7761},
      {-7.283412422, 0.7809}, {-6.995678626, 0.7961}, {-6.691862621, 0.8253}, {-6.392544977, 0.8602},
      {-6.067374056, 0.8809}, {-6.684029655, 0.8301}, {-6.378719832, 0.8664}, {-6.065855188, 0.8834},
      {-5.752272167, 0.8898}, {-5.132414673, 0.8964}, {-4.811352704, 0.8963}, {-4.098269308, 0.9074},
      {-3.66174277, 0.9119},  {-3.2644011, 0.9228}};
  const auto ajuster = [&](int degre) {
    std::vector<std::vector<double>> lignes;
    for (const auto& [x, y] : points) {
      std::vector<double>& ligne = lignes.emplace_back();
      for (int i = 1; i <= degre; ++i) ligne.push_back(std::pow(x, i));
      ligne.push_back(y);
    }
    return Ajuster(lignes);
  };
  EXPECT_FALSE(ajuster(10).ajustement);
  EXPECT_FALSE(ajuster(8).ajustement);
  const Ajustee six = ajuster(6);
  ASSERT_TRUE(six.ajustement);
  EXPECT_GT(six.perdues, 0U);
  const Ajustee quatre = ajuster(4);
  ASSERT_TRUE(quatre.ajustement);
  EXPECT_EQ(quatre.perdues, 0U);
  const double exacts[] = {1.37440583171214, 0.397096885110321, 0.0492439098447179, 0.00217486865555569,
                           2.64440574320944};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_LT(EcartRelatif(quatre.ajustement->parametres[i], exacts[i]), 1e-7) << i;
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
}

// A total beside its two parts, with cents that are not exact in a double: no order of the pivots may make a fit of it.
TEST(Reglin, UneSommeDesAutresEstRefusee) {
  std::mt19937 hasard(11);
  const auto tirer = [&](double bas, double haut) {
    return std::round(100 * (bas + (haut - bas) * static_cast<double>(hasard()) / 4294967296.0)) / 100;
  };
  for (int fois = 0; fois < 300; ++fois) {
    std::vector<std::vector<double>> lignes;
    for (int i = 0; i < 20 + fois; ++i) {
      const double salaire = tirer(1700, 2300);
      const double prime = tirer(70, 130);
      lignes.push_back({salaire, prime, std::round(100 * (salaire + prime)) / 100, tirer(0, 10)});
    }
    EXPECT_FALSE(Ajuster(lignes).ajustement) << fois;
  }
}

// Whatever the value that a column repeats, and whatever rounding leaves of its sums.
TEST(Reglin, UneConstanteEstVueSurLesDonnees) {
  for (const double valeur : {0.0, 3.0, 0.1, 1.0 / 3, -7.7, 123456.7, 1e9 + 0.1, 2.9e-7}) {
    Moments moments(2);
    std::vector<std::vector<double>> explicative;
    std::vector<std::vector<double>> expliquee;
    for (int i = 0; i < 21; ++i) {
      moments.Ajouter(std::vector<double>{valeur, 0.1 * i, 1, 1.0 * i * i});
      explicative.push_back({valeur, 0.1 * i * i, 1.0 * i});
      expliquee.push_back({1.7 * i, 0.1 * i * i, valeur});
    }
    EXPECT_EQ(DisperserMoments(moments).covariances(0, 0), 0) << valeur;
    EXPECT_FALSE(Ajuster(explicative).ajustement) << valeur;
    EXPECT_EQ(essai::NumeroLeve([&] { Ajuster(expliquee); }), kDivisionParZero) << valeur;
  }
  // Nor does rounding say whether three individuals determine four parameters.
  EXPECT_FALSE(Ajuster({{0.1, 0.7, 3.3, 1}, {0.3, 0.2, 1.7, 2}, {1.9, 4.1, 0.3, 3}}).ajustement);
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

class RunReglin : public essai::RunDeProgramme {};

// What stands behind the number of a field is left out by the conversion, and told.
TEST_F(RunReglin, ValeursQuiNeSontPasDesNombres) {
  Ecrire("ENQ.MOD", "ENQ\n FMT=6\nAAA1 Y\nBBB1 X\n**\n");
  Ecrire("ENQ.CDG",
         "1        1   1/2\n2        2  12a6\n3      4.5 1.2.3\n4        7 1 2   \n5      -.5   1E1\n6    1.      +4  "
         "\n");
  EXPECT_EQ(Reglin(contexte_), Fin::Normale);
  EXPECT_EQ(boites_, std::vector<std::string>{std::string(
                         "*** Attention : 3 individus ont une valeur qui n'est pas un nombre, elle s'arrête devant le "
                         "premier signe de trop : corrigez-la (le premier est l'individu 1, variable BBB1)"_w)});
}

TEST_F(RunReglin, MarqueDeLogarithmeCoupee) {
  Ecrire("ENQ.CDG", "1    1 2\n2    2 4\n3    4 5\n");
  const auto dit = [&](std::string_view intitule) {
    boites_.clear();
    Ecrire("ENQ.MOD", Joindre({"ENQ\n FMT=2\nAAA1 Y\nBBB1 X ", intitule, "\n**\n"}));
    EXPECT_EQ(Reglin(contexte_), Fin::Normale);
    return boites_.empty() ? std::string() : boites_[0];
  };
  EXPECT_TRUE(dit("Une variable au nom long *LOG*").ends_with("le logarithme n'est pas calcul\xE9 : BBB1"));
  EXPECT_EQ(dit("Une variable au nom *LOG* long"), "") << "within the 25 characters that are kept";
}

TEST_F(RunReglin, ValeursAVirgule) {
  Ecrire("ENQ.MOD", "ENQ\n FMT=4\nAAA1 Y\nBBB1 X\nCCC1\n**\n");
  Ecrire("ENQ.CDG", "1      1   2 1,5\n2      2 4,5   1\n3      4   5   1\n4      4 3,5   1\n");
  EXPECT_EQ(Reglin(contexte_), Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find(" 2 individus ont une valeur \xE0 virgule"), std::string::npos);
  EXPECT_NE(boites_[0].find("l'individu 2, variable BBB1)"), std::string::npos);
}

// A line taken out of the .MOD shifts the columns behind it; the report is that of the columns that are named.
TEST_F(RunReglin, ColonnesQuePersonneNeNomme) {
  Ecrire("ENQ.MOD", "ENQ\n FMT=2\nAAA1 Y\nBBB1 X\n**\n");
  struct Cas {
    const char* donnees;
    std::string_view dit;
  };
  for (const Cas& c : {Cas{"1    1 2 7\n2    2 4 9\n3    4 5 8\n", "toutes les lignes vont plus loin"},
                       Cas{"1    1 2 7\n2    2 4  \n3    4 5 8\n", "2 lignes (la première est l'individu 1) vont"_w},
                       Cas{"1    1 2\n2    2 4  \n3    4 5\n", ""}}) {
    boites_.clear();
    Ecrire("ENQ.CDG", c.donnees);
    EXPECT_EQ(Reglin(contexte_), Fin::Normale);
    ASSERT_EQ(boites_.size(), c.dit.empty() ? 0U : 1U) << c.donnees;
    EXPECT_NE((boites_.empty() ? std::string() : boites_[0]).find(c.dit), std::string::npos) << c.donnees;
  }
}

}  // namespace quelvar::regression
