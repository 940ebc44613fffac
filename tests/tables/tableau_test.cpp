// Order, maximum table, gamma and indices of a counted table.
#include "support/tableau.h"

#include <gtest/gtest.h>

#include "support/erreur.h"
#include "tables/diagonalisation.h"
#include "tables/gamma.h"
#include "tables/indices.h"

using namespace quelvar::crosstab;
using namespace quelvar::tables;

namespace quelvar {
namespace {

using essai::MatriceDe;
using essai::NumeroLeve;
using Rangs = std::vector<std::size_t>;

std::vector<double> Cellules(const Matrice& matrice) { return {matrice.Valeurs().begin(), matrice.Valeurs().end()}; }

// Rows 3/4, 1/4 and 1/2 in the first column: ascending scores give rows 2, 3, 1 and columns 2, 1, or the other way
// round. Kept orders change the corners and with them the diagonal.
TEST(Diagonalisation, OrdresTriesOuConserves) {
  const Matrice cellules = MatriceDe({{30, 10}, {10, 30}, {20, 20}});
  const struct {
    OrdresTries tries;
    Rangs lignes, colonnes;
    Matrice maximum;
  } cas[] = {
      {{true, true}, {1, 2, 0}, {1, 0}, MatriceDe({{40, 0}, {20, 20}, {0, 40}})},
      {{false, true}, {0, 1, 2}, {1, 0}, MatriceDe({{0, 40}, {20, 20}, {40, 0}})},
      {{true, false}, {1, 2, 0}, {0, 1}, MatriceDe({{0, 40}, {20, 20}, {40, 0}})},
      {{false, false}, {0, 1, 2}, {0, 1}, MatriceDe({{40, 0}, {20, 20}, {0, 40}})},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(testing::Message() << c.tries.lignes << c.tries.colonnes);
    const Diagonalisee d = Diagonalisation(Compter(cellules), c.tries);
    EXPECT_EQ(d.table.rangsLignes, c.lignes);
    EXPECT_EQ(d.table.rangsColonnes, c.colonnes);
    EXPECT_EQ(Cellules(d.maximum), Cellules(c.maximum));
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(d.table.marges.lignes[i], 40);
      for (std::size_t j = 0; j < 2; ++j)
        EXPECT_EQ(d.table.effectifs(i, j), cellules(d.table.rangsLignes[i], d.table.rangsColonnes[j]));
    }
    EXPECT_NEAR(d.facteur.lignes[0], 0.5, 1e-12);  // the coordinates keep the order of the file
  }
}

// Equal profiles have equal scores up to rounding and an independent table has no scores: nothing moves.
TEST(Diagonalisation, ScoresEgaux) {
  const Diagonalisee d = Diagonalisation(Compter(MatriceDe({{2, 4, 2}, {2, 4, 2}, {4, 8, 4}})), {});
  EXPECT_EQ(d.facteur.valeurPropre, 0);
  EXPECT_EQ(d.table.rangsLignes, (Rangs{0, 1, 2}));
  EXPECT_EQ(d.table.rangsColonnes, (Rangs{0, 1, 2}));
  EXPECT_EQ(Cellules(d.maximum), Cellules(MatriceDe({{0, 0, 8}, {0, 8, 0}, {8, 8, 0}})));  // a tie: the other diagonal
}

TEST(Diagonalisation, TablesImpossibles) {
  EXPECT_EQ(NumeroLeve([] { Diagonalisation(Compter(MatriceDe({{0, 0}, {0, 0}})), {}); }), kDivisionParZero);
  EXPECT_EQ(NumeroLeve([] { Diagonalisation(Compter(Matrice(0, 3)), {}); }), kDivisionParZero);
  EXPECT_EQ(NumeroLeve([] { Compter(MatriceDe({{1e308, 1e308}})); }), kDepassementCapacite);
}

// Income by job satisfaction: A. Agresti, "Categorical Data Analysis" (2002), 2.4.4: 1331 concordant and 849
// discordant pairs among 96 persons.
TEST(Gamma, ExemplePublie) {
  const Matrice cellules = MatriceDe({{1, 3, 10, 6}, {2, 3, 10, 7}, {1, 6, 14, 12}, {0, 1, 9, 11}});
  const Gamma gamma = CalculerGamma(Compter(cellules));
  EXPECT_DOUBLE_EQ(gamma.accords, 2 * 1331.0 / (96 * 96));
  EXPECT_DOUBLE_EQ(gamma.desaccords, 2 * 849.0 / (96 * 96));
  EXPECT_DOUBLE_EQ(*gamma.gamma, 482.0 / 2180);

  Matrice miroir = cellules;  // columns from right to left: the other diagonal, the same association
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j) miroir(i, j) = cellules(i, 3 - j);
  EXPECT_DOUBLE_EQ(*CalculerGamma(Compter(miroir)).gamma, 482.0 / 2180);
}

TEST(Gamma, SansPaires) {
  const Gamma gamma = CalculerGamma(Compter(MatriceDe({{3, 4}})));
  EXPECT_FALSE(gamma.gamma.has_value());
  EXPECT_EQ(gamma.accords, 0);
  EXPECT_EQ(NumeroLeve([] { CalculerGamma(Compter(MatriceDe({{0, 0}}))); }), kDivisionParZero);
}

TEST(Statistiques, LigneVide) {
  const TableauCompte table = Compter(MatriceDe({{6, 2}, {0, 0}}));
  const DetailsDuTableau details = Detailler(table);
  EXPECT_EQ(Cellules(details.pourcentages), (std::vector<double>{75, 25, 0, 0}));
  EXPECT_EQ(Cellules(details.differences), (std::vector<double>{0, 0, -75, -25}));
  EXPECT_EQ(Cellules(details.contributions), std::vector<double>(4, 0));
  EXPECT_EQ(SommerEcarts(table.effectifs, table.marges, Echelle::Effectifs).khi2, 0);
}

// Without a second row or column, or with a maximum table that does not deviate, an index has no value.
TEST(Statistiques, IndicesSansDiviseur) {
  const TableauCompte table = Compter(MatriceDe({{6, 2}}));
  const IndicesGlobaux indices = CalculerIndices(table, {}, {});
  EXPECT_EQ(indices.plusPetiteDimension, 1U);
  for (const auto& indice : {indices.pem, indices.khi2SurMaximum, indices.rapportCramer, indices.vCramer})
    EXPECT_FALSE(indice.has_value());
  const TableauCompte negative = Compter(MatriceDe({{-6, 2}, {1, 1}}));
  EXPECT_EQ(NumeroLeve([&] { CalculerIndices(negative, {1, 5}, {1, 1}); }), kArgumentIncorrect);
}

}  // namespace
}  // namespace quelvar
