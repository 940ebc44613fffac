#include "crosstab/tableau/khi2.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "support/erreur.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

// Quantiles of the chi-square as statistical tables print them (R. A. Fisher and F. Yates): the approximation stays
// within 8 thousandths of them, at its worst near the middle for one degree of freedom.
TEST(ProbaKhi2, ApprocheLesTables) {
  const struct {
    double degres, khi2, p;
  } cas[] = {{1, 2.706, 0.90},  {1, 3.841, 0.95},    {1, 6.635, 0.99},   {2, 5.991, 0.95},   {4, 9.488, 0.95},
             {10, 18.307, .95}, {100, 124.342, .95}, {10, 3.940, 0.05},  {10, 2.558, 0.01},  {1, 0.0158, 0.10},
             {1, 0.455, 0.50},  {30, 29.336, 0.50},  {10, 29.588, .999}, {5, 1.145, 0.05},   {100, 77.929, 0.05},
             {3, 7.815, 0.95},  {2, 0.103, 0.05},    {6, 16.812, 0.99},  {20, 31.410, 0.95}, {50, 34.764, 0.05}};
  for (const auto& c : cas)
    EXPECT_NEAR(ProbaKhi2(c.degres, c.khi2).p, c.p, 0.008) << c.degres << " degrees, " << c.khi2;
}

// Values worked out apart from the formulas with their short coefficients: a table prints three decimals of 1 - p.
TEST(ProbaKhi2, SuitLaFormuleAuMillionieme) {
  EXPECT_NEAR(ProbaKhi2(1, 2.706).p, 0.904251763, 1e-9);
  EXPECT_NEAR(ProbaKhi2(1, 0.004).p, 0.052019965, 1e-9);  // f < 1 and one degree: the correction for b <= 3
  EXPECT_NEAR(ProbaKhi2(3, 0.3).p, 0.041078997, 1e-9);
  EXPECT_NEAR(ProbaKhi2(5, 5).p, 0.583490371, 1e-9);  // f = 1
}

TEST(ProbaKhi2, Etoiles) {
  const struct {
    double degres, khi2;
    std::string_view marque;
  } cas[] = {{1, 2.5, "ns"}, {1, 2.8, "* "}, {1, 3.9, "**"},  {1, 6.7, "***"},
             {4, 7.6, "ns"}, {4, 9.2, "* "}, {4, 13.0, "**"}, {4, 13.5, "***"}};
  for (const auto& c : cas) EXPECT_EQ(ProbaKhi2(c.degres, c.khi2).marque, c.marque) << c.khi2;
}

TEST(MarqueDeClasse, HasItsStarsAndBlanksUpToTheColumnsAsked) {
  constexpr std::string_view kNues[] = {"ns", "*", "**", "***"};
  for (int classe = 0; classe <= 3; ++classe)
    for (int colonnes = 0; colonnes <= 3; ++colonnes) {
      std::string attendue(kNues[classe]);
      while (static_cast<int>(attendue.size()) < colonnes) attendue += ' ';
      EXPECT_EQ(MarqueDeClasse(classe, static_cast<std::size_t>(colonnes)), attendue) << classe << colonnes;
    }
  const std::pair<double, int> cas[] = {{0.11, 0}, {0.1, 1}, {0.051, 1}, {0.05, 2}, {0.011, 2}, {0.01, 3}, {0, 3}};
  for (const auto& [depassement, classe] : cas) EXPECT_EQ(ClasseDuDepassement(depassement), classe) << depassement;
}

TEST(ClasseKhi2, TurnsAtItsThresholds) {
  struct Cas {
    double khi2;
    int comprise, exclue;
  };
  for (const Cas& c : {Cas{2.7099, 0, 0}, {2.71, 1, 0}, {3.84, 2, 1}, {6.6399, 2, 2}, {6.64, 3, 2}, {6.65, 3, 3}}) {
    EXPECT_EQ(ClasseKhi2(c.khi2, Borne::Comprise), c.comprise) << c.khi2;
    EXPECT_EQ(ClasseKhi2(c.khi2, Borne::Exclue), c.exclue) << c.khi2;
  }
}

TEST(ProbaKhi2, CasLimites) {
  EXPECT_EQ(ProbaKhi2(0, 0).p, 0);
  EXPECT_EQ(ProbaKhi2(0, -0.00000009).marque, "ns");
  EXPECT_EQ(ProbaKhi2(3, -0.001).p, -1);
  EXPECT_EQ(ProbaKhi2(3, -0.001).marque, "Erreur");
  EXPECT_EQ(ProbaKhi2(1, 1e12).p, 1);
  EXPECT_EQ(ProbaKhi2(1, 1e12).marque, "***");
  EXPECT_NEAR(ProbaKhi2(1000, 0.001).p, 0, 1e-12);
  const auto numero = [](double degres, double khi2) { return essai::NumeroLeve([&] { ProbaKhi2(degres, khi2); }); };
  EXPECT_EQ(numero(0, 1), kDivisionParZero);
  EXPECT_EQ(numero(-1, 1), kArgumentIncorrect);
  EXPECT_EQ(numero(1, std::numeric_limits<double>::infinity()), kDepassementCapacite);
  EXPECT_EQ(numero(1, std::numeric_limits<double>::quiet_NaN()), kArgumentIncorrect);
}

}  // namespace
}  // namespace quelvar
