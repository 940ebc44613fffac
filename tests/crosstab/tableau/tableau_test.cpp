#include "crosstab/tableau/tableau.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/tableau.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

using essai::MatriceDe;
using Places = std::vector<std::size_t>;

// Adds the empty row and column of code 0 around counts of the codes 1, 2...
Matrice AvecCodeZero(const Matrice& table) {
  Matrice complete(table.Lignes() + 1, table.Colonnes() + 1);
  for (std::size_t i = 0; i < table.Lignes(); ++i)
    for (std::size_t j = 0; j < table.Colonnes(); ++j) complete(i + 1, j + 1) = table(i, j);
  return complete;
}

TEST(AnalyserTableau, DeuxParDeuxSeulementPourDeuxCodes) {
  const Matrice pleine = AvecCodeZero(MatriceDe({{30, 10}, {20, 40}}));
  Matrice troisCodes(4, 3);
  Matrice avecNonReponse = pleine;
  avecNonReponse(0, 1) = 5;
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) troisCodes(i, j) = pleine(i, j);
  EXPECT_FALSE(AnalyserTableau(troisCodes, {}).deuxParDeux);
  EXPECT_FALSE(AnalyserTableau(avecNonReponse, {}).deuxParDeux);
  // Code 0 and code 1 make two rows as well.
  EXPECT_TRUE(AnalyserTableau(MatriceDe({{0, 5, 6}, {0, 7, 8}, {0, 0, 0}}), {}).deuxParDeux);
}

// N = 20: T = 0.5 0.5 / 9.5 9.5, contributions 0.5 0.5 / 1/38 1/38.
TEST(AnalyserTableau, CasesFaibles) {
  const TableauCroise t = AnalyserTableau(AvecCodeZero(MatriceDe({{1, 0}, {9, 10}})), {});
  ASSERT_EQ(t.casesFaibles.size(), 2U);
  EXPECT_EQ(t.casesFaibles[1].ligne, 1U);
  EXPECT_EQ(t.casesFaibles[1].colonne, 2U);
  EXPECT_DOUBLE_EQ(t.casesFaibles[1].contribution, 0.5);
  EXPECT_EQ(t.partCasesFaibles, 50);
  EXPECT_DOUBLE_EQ(t.khi2Faibles, 1);
  EXPECT_NEAR(t.khi2SansFaibles, 2.0 / 38, 1e-12);
  EXPECT_NEAR(t.partKhi2Faibles, 100 / (1 + 2.0 / 38), 1e-9);
  EXPECT_EQ(t.probaSansFaibles.marque, "ns");
}

// Eye colour (blue, light, medium, dark) and hair colour (fair, red, medium, dark, black) of the school children of
// Caithness: R. A. Fisher, "The precision of discriminant functions", Annals of Eugenics (1940).
TEST(AnalyserTableau, ExemplePublie) {
  const TableauCroise t = AnalyserTableau(
      MatriceDe({{326, 38, 241, 110, 3}, {688, 116, 584, 188, 4}, {343, 84, 909, 412, 26}, {98, 48, 403, 681, 85}}),
      {.pourPem = true});
  EXPECT_NEAR(t.khi2, 1240.04, 0.005);
  EXPECT_EQ(t.compte.rangsLignes, (Places{3, 2, 0, 1}));  // dark to light, as published
  EXPECT_EQ(t.compte.rangsColonnes, (Places{4, 3, 2, 1, 0}));
  EXPECT_EQ(t.degres, 12);
  EXPECT_EQ(t.proba.p, 1);
}

// The order moves codes, totals and cells together; inversions turn each side on its own.
TEST(AnalyserTableau, OrdrePourLePem) {
  const Matrice effectifs = AvecCodeZero(MatriceDe({{12, 30, 8}, {40, 8, 2}, {2, 10, 40}, {0, 0, 0}}));
  const TableauCroise origine = AnalyserTableau(effectifs, {});
  for (const bool lignesInversees : {false, true}) {
    for (const bool colonnesInversees : {false, true}) {
      const TableauCroise t = AnalyserTableau(effectifs, {true, lignesInversees, colonnesInversees});
      for (std::size_t i = 0; i < 5; ++i) {
        for (std::size_t j = 0; j < 4; ++j)
          EXPECT_EQ(t.compte.effectifs(i, j), effectifs(t.compte.rangsLignes[i], t.compte.rangsColonnes[j]));
        EXPECT_EQ(t.compte.marges.lignes[i], origine.compte.marges.lignes[t.compte.rangsLignes[i]]);
      }
      // The start gives row 2, the only one in excess in column 1, the positive side.
      const auto sansVides = [](Places codes) {
        std::erase_if(codes, [](std::size_t code) { return code == 0 || code == 4; });
        return codes;
      };
      EXPECT_EQ(sansVides(t.compte.rangsLignes), lignesInversees ? (Places{2, 1, 3}) : (Places{3, 1, 2}));
      EXPECT_EQ(sansVides(t.compte.rangsColonnes), colonnesInversees ? (Places{1, 2, 3}) : (Places{3, 2, 1}));
      EXPECT_NEAR(t.khi2, origine.khi2, 1e-9);
    }
  }
}

// The corners leave out code 0 wherever the order puts it, and empty rows: with them the leaning would be the other
// way.
TEST(AnalyserTableau, CoinsSansNonReponses) {
  const TableauCroise t = AnalyserTableau(MatriceDe({{0, 0, 0, 50}, {0, 30, 10, 0}, {0, 10, 30, 0}, {0, 0, 0, 0}}), {});
  // Last column is code 3: corners (1,1) = 30/130 - ..., (1,3) = 0 - ..., (2,1), (2,3): main diagonal.
  EXPECT_GT(t.maximum(0, 1), 0);
  const TableauCroise sans = AnalyserTableau(MatriceDe({{0, 0, 50}, {0, 30, 10}, {50, 10, 30}}), {});
  EXPECT_EQ(sans.maximum(0, 0), 50);  // codes 1 and 2 alone lean to the main diagonal, code 0 to the other one
}

TEST(AnalyserTableau, UneSeuleLigneOuRien) {
  const TableauCroise ligne = AnalyserTableau(MatriceDe({{0, 0, 0}, {0, 7, 3}}), {.pourPem = true});
  EXPECT_EQ(ligne.degres, 0);
  EXPECT_EQ(ligne.khi2, 0);
  EXPECT_EQ(ligne.proba.marque, "ns");
  EXPECT_EQ(ligne.proba.p, 0);
  EXPECT_EQ(ligne.pem, 0);
  const TableauCroise nonReponses = AnalyserTableau(MatriceDe({{9, 0}, {0, 0}}), {.pourPem = true});
  EXPECT_EQ(nonReponses.pem, 0);
  EXPECT_EQ(nonReponses.lignes, (Places{0}));
  const TableauCroise vide = AnalyserTableau(Matrice(3, 3), {.pourPem = true});
  EXPECT_TRUE(vide.Vide());
  EXPECT_TRUE(vide.lignes.empty());
}

// Weighted counts of one row: residues must not pass for deviations.
TEST(AnalyserTableau, PonderationSansResidu) {
  Matrice effectifs(2, 5);
  for (std::size_t j = 0; j < 5; ++j) effectifs(1, j) = static_cast<double>(3 * j + 1) / 0.7;
  const TableauCroise t = AnalyserTableau(effectifs, {});
  EXPECT_EQ(t.proba.marque, "ns");
  EXPECT_EQ(t.pem, 0);
}

}  // namespace
}  // namespace quelvar
