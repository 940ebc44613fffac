#include "crosstab/tableau/maximum.h"

#include <gtest/gtest.h>

#include "crosstab/tableau/statistiques.h"
#include "support/tableau.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

using essai::MatriceDe;

std::vector<double> Cellules(const Matrice& matrice) { return {matrice.Valeurs().begin(), matrice.Valeurs().end()}; }

TEST(TableauMaximum, ChoixDeLaDiagonale) {
  EXPECT_EQ(ChoisirDiagonale(0.2, -0.1, -0.1, 0.1), Diagonale::Principale);
  EXPECT_EQ(ChoisirDiagonale(-0.2, 0.1, 0.1, 0.1), Diagonale::Autre);
  EXPECT_EQ(ChoisirDiagonale(0.1, 0.1, 0.2, 0.2), Diagonale::Autre);  // a tie
}

TEST(TableauMaximum, CasTravaillesALaMain) {
  const double lignes[] = {40, 0, 60};
  const double colonnes[] = {30, 50, 20};
  EXPECT_EQ(Cellules(TableauMaximum(lignes, colonnes, Diagonale::Principale)),
            Cellules(MatriceDe({{30, 10, 0}, {0, 0, 0}, {0, 40, 20}})));
  EXPECT_EQ(Cellules(TableauMaximum(lignes, colonnes, Diagonale::Autre)),
            Cellules(MatriceDe({{0, 20, 20}, {0, 0, 0}, {30, 30, 0}})));
  // row and column used up together: both go on
  const double egales[] = {5, 7};
  EXPECT_EQ(Cellules(TableauMaximum(egales, egales, Diagonale::Principale)), Cellules(MatriceDe({{5, 0}, {0, 7}})));
}

TEST(TableauMaximum, MargesGardees) {
  for (unsigned graine = 0; graine < 200; ++graine) {
    const Marges marges = MargesDe(essai::MatriceAuHasard(2 + graine % 6, 2 + graine % 7, graine));
    for (const Diagonale diagonale : {Diagonale::Principale, Diagonale::Autre}) {
      const Marges maximum = MargesDe(TableauMaximum(marges.lignes, marges.colonnes, diagonale));
      EXPECT_EQ(maximum.lignes, marges.lignes);
      EXPECT_EQ(maximum.colonnes, marges.colonnes);
    }
  }
}

// In a table of two rows and two columns no other one of the same margins deviates more on the side it leans to.
TEST(TableauMaximum, EcartsMaximaux) {
  for (unsigned graine = 0; graine < 200; ++graine) {
    const Matrice n = essai::MatriceAuHasard(2, 2, graine);
    const Marges marges = MargesDe(n);
    if (marges.total == 0) continue;
    const Diagonale diagonale = n(0, 0) * n(1, 1) > n(0, 1) * n(1, 0) ? Diagonale::Principale : Diagonale::Autre;
    const auto positifs = [&](const Matrice& cellules) {
      return SommerEcarts(cellules, marges, Echelle::Effectifs).positifs;
    };
    EXPECT_GE(positifs(TableauMaximum(marges.lignes, marges.colonnes, diagonale)), positifs(n) - 1e-9);
  }
}

}  // namespace
}  // namespace quelvar
