#include "crosstab/tableau/pemlocal.h"

#include <gtest/gtest.h>

#include "core/panne/erreur.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

// Worked by hand. The 2 x 2 table of the first: 30 10 / 20 40, T = 20, at most 40: 100 x 10 / 20; chi-square
// 100 (30 x 40 - 10 x 20)^2 / (40 x 60 x 50 x 50).
TEST(PemLocal, CasTravaillesALaMain) {
  const struct {
    double total, ligne, colonne, effectif, ecart, pem, khi2;
  } cas[] = {
      {100, 40, 50, 30, 10, 50, 100.0 * 1000 * 1000 / 6e6},
      {100, 40, 50, 10, -10, -50, 100.0 * 1000 * 1000 / 6e6},  // the least possible is 0
      {100, 40, 50, 0, -20, -100, 100.0 * 2000 * 2000 / 6e6},
      {100, 40, 50, 40, 20, 100, 100.0 * 2000 * 2000 / 6e6},
      {100, 80, 60, 44, -4, -50, 100.0 * 400 * 400 / (80.0 * 20 * 60 * 40)},  // at least 40, T = 48
      {100, 40, 50, 20, 0, 0, 0},
      // T = 4: Yates, (|3 x 73 - 7 x 17| - 50)^2 = 50^2 (b = 20, a = 10 gives T = 2)
      {100, 10, 20, 3, 1, 12.5, 100.0 * 50 * 50 / (10.0 * 90 * 20 * 80)},
      {100, 10, 20, 2, 0, 0, 0},
      // |n N - ab| = 50 is not above N/2: the corrected chi-square is 0
      {100, 10, 5, 1, 0.5, 100 * 0.5 / 4.5, 0},
      // the smallest theoretical count is exactly 5: no correction, (100 x 9 - 500)^2
      {100, 10, 50, 9, 4, 80, 100.0 * 400 * 400 / (10.0 * 90 * 50 * 50)},
      // a full row: nothing can deviate
      {50, 50, 20, 20, 0, 0, 0},
      {50, 20, 50, 20, 0, 0, 0},
      {50, 0, 20, 0, 0, 0, 0},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(testing::Message() << c.total << " " << c.ligne << " " << c.colonne << " " << c.effectif);
    const AttractionLocale locale = PemLocal(c.total, c.ligne, c.colonne, c.effectif);
    EXPECT_DOUBLE_EQ(locale.ecart, c.ecart);
    EXPECT_DOUBLE_EQ(locale.pem, c.pem);
    EXPECT_DOUBLE_EQ(locale.khi2, c.khi2);
  }
}

TEST(PemLocal, RienADiviser) {
  const double cas[][4] = {{0, 0, 0, 0}, {0, 5, 5, 5}, {50, 0, 20, 3}, {50, 50, 20, 21}, {50, 0, 20, -1}};
  for (const auto& c : cas) EXPECT_THROW(PemLocal(c[0], c[1], c[2], c[3]), Erreur) << c[0] << ' ' << c[1];
}

// Rows and columns play the same part, and the bounds hold for every table of 12 individuals.
TEST(PemLocal, SymetriqueEtBorne) {
  for (int a = 1; a <= 12; ++a)
    for (int b = 1; b <= 12; ++b)
      for (int n = std::max(0, a + b - 12); n <= std::min(a, b); ++n) {
        const AttractionLocale direct = PemLocal(12, a, b, n);
        const AttractionLocale croise = PemLocal(12, b, a, n);
        EXPECT_EQ(direct.pem, croise.pem);
        EXPECT_EQ(direct.khi2, croise.khi2);
        EXPECT_GE(direct.pem, -100 - 1e-9);
        EXPECT_LE(direct.pem, 100 + 1e-9);
        EXPECT_EQ(direct.pem > 0, n * 12 > a * b);
        EXPECT_EQ(direct.pem < 0, n * 12 < a * b);
      }
}

// One individual apart from a million others is a whole deviation, however small beside the total.
TEST(PemLocal, GrandesEnquetes) {
  for (const double total : {1e5, 1e6, 4e6}) {
    EXPECT_NEAR(PemLocal(total, 1, total - 1, 1).pem, 100, 0.01) << total;
    EXPECT_NEAR(PemLocal(total, 1, total - 1, 0).pem, -100, 0.01) << total;
    EXPECT_NEAR(PemLocal(total, total - 1, total - 1, total - 1).pem, 100, 0.01) << total;
    EXPECT_NEAR(PemLocal(total, total - 1, total - 1, total - 2).pem, -100, 0.2) << total;
    EXPECT_EQ(PemLocal(total, total, total - 3, total - 3).pem, 0) << total;
  }
}

// A weighting leaves residues where whole counts would give exactly nothing.
TEST(PemLocal, ResidusDePonderation) {
  const double total = 0.1 + 0.2 + 0.3;
  const AttractionLocale locale = PemLocal(total, 0.6, 0.3, 0.3);  // 0.6 is not the sum above, to the last bit
  ASSERT_NE(total, 0.6);
  EXPECT_EQ(locale.pem, 0);
  EXPECT_EQ(locale.khi2, 0);
}

}  // namespace
}  // namespace quelvar
