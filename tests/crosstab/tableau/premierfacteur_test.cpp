#include <gtest/gtest.h>

#include <cmath>

#include "crosstab/tableau/ordre.h"
#include "support/erreur.h"
#include "support/tableau.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

using essai::MatriceDe;

void ExpectProches(const std::vector<double>& obtenus, const std::vector<double>& attendus, double tolerance) {
  ASSERT_EQ(obtenus.size(), attendus.size());
  for (std::size_t i = 0; i < obtenus.size(); ++i) EXPECT_NEAR(obtenus[i], attendus[i], tolerance) << "rank " << i;
}

// Staff groups by smoking habits: M. J. Greenacre, "Theory and Applications of Correspondence Analysis" (1984). The
// tolerance is that of the stop test: three decimals of the standardised score of the first row.
TEST(PremierFacteur, ExemplePublie) {
  const TableauCompte t =
      Compter(MatriceDe({{4, 2, 3, 2}, {4, 3, 7, 4}, {25, 10, 12, 4}, {18, 24, 33, 13}, {10, 6, 7, 2}}));
  const PremierFacteur facteur = FacteurDe(t, Bords::Tous);
  EXPECT_NEAR(facteur.valeurPropre, 0.0748, 0.0001);
  const double sens = facteur.colonnes[0] > 0 ? -1 : 1;
  std::vector<double> lignes, colonnes;
  for (const double x : facteur.lignes) lignes.push_back(sens * x);
  for (const double x : facteur.colonnes) colonnes.push_back(sens * x);
  ExpectProches(lignes, {-0.0658, 0.2590, -0.3806, 0.2330, -0.2011}, 0.002);
  ExpectProches(colonnes, {-0.3933, 0.0995, 0.1963, 0.2938}, 0.002);
}

// Two rows and two columns: the eigenvalue is chi-square/N, here ((30 x 40 - 10 x 20)/100)^2 x 100^2 / (40 60 50 50),
// and a row's coordinate is n times plus or minus the square root of the other row's weight over its own.
TEST(PremierFacteur, DeuxParDeux) {
  const PremierFacteur facteur = FacteurDe(Compter(MatriceDe({{30, 10}, {20, 40}})), Bords::Tous);
  const double phi2 = 1e6 / 6e6;
  const double n = std::sqrt(phi2);
  EXPECT_NEAR(facteur.valeurPropre, phi2, 1e-12);
  ExpectProches(facteur.lignes, {n * std::sqrt(1.5), -n * std::sqrt(1 / 1.5)}, 1e-12);
  ExpectProches(facteur.colonnes, {n, -n}, 1e-12);
}

// A row and a column without anybody in front: the signs come from column 2, the stop test follows row 2.
TEST(PremierFacteur, LigneEtColonneVidesEnTete) {
  const PremierFacteur plein = FacteurDe(Compter(MatriceDe({{4, 2, 3}, {4, 3, 7}, {25, 10, 12}})), Bords::Tous);
  const PremierFacteur vide =
      FacteurDe(Compter(MatriceDe({{0, 0, 0, 0}, {0, 4, 2, 3}, {0, 4, 3, 7}, {0, 25, 10, 12}})), Bords::Tous);
  ExpectProches(vide.lignes, {0, plein.lignes[0], plein.lignes[1], plein.lignes[2]}, 0);
  ExpectProches(vide.colonnes, {0, plein.colonnes[0], plein.colonnes[1], plein.colonnes[2]}, 0);
}

// Powers of two leave no rounding: all deviations are exactly 0, nothing is normalised, the second round stops.
TEST(PremierFacteur, TableauIndependant) {
  const TableauCompte t = Compter(MatriceDe({{2, 2}, {4, 4}, {2, 2}}));
  const PremierFacteur facteur = FacteurDe(t, Bords::Tous, 2);
  EXPECT_EQ(facteur.valeurPropre, 0);
  EXPECT_EQ(facteur.lignes, std::vector<double>(3, 0.0));
  EXPECT_EQ(OrdreDesScores(facteur.lignes), (std::vector<std::size_t>{0, 1, 2}));
}

TEST(PremierFacteur, TableauxImpossibles) {
  const auto numero = [](const Matrice& m) { return essai::NumeroLeve([&] { FacteurDe(Compter(m), Bords::Tous); }); };
  EXPECT_EQ(numero((MatriceDe({{0, 0}, {0, 0}}))), kDivisionParZero);
  EXPECT_EQ(numero((MatriceDe({{1, 2}, {-30, 30}, {1, -2}}))), kArgumentIncorrect);
}

TEST(PremierFacteur, OrdreDesScores) {
  const std::vector<double> scores = {0.5, -1, 0.5, -1, 0};
  EXPECT_EQ(OrdreDesScores(scores), (std::vector<std::size_t>{1, 3, 4, 0, 2}));
  EXPECT_EQ(OrdreDesScores(scores, true), (std::vector<std::size_t>{0, 2, 4, 1, 3}));
}

}  // namespace
}  // namespace quelvar
