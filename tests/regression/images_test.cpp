// The pictures of the regression: where the marks stand.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "regression/images/effets.h"

namespace quelvar::regression {

namespace {

TEST(ImageDesEffets, LaReferenceEstAZeroEtLesPointsSontDansLeurOrdre) {
  const Dessin dessin = DessinerEffets({"Modalite",
                                        {{"Homme", true, {}, 0, {}, false},
                                         {"Femme", false, 5.0, 7.0, 3.0, false},
                                         {"Jeune", false, -30.0, 2.0, {}, true},
                                         {"Cadre", false, {}, 0, 12.0, false}}});
  std::map<std::int32_t, double> cercles;
  std::map<std::int32_t, double> losanges;
  for (const Forme& forme : dessin.Formes()) {
    if (forme.id >= 0 && forme.genre == GenreForme::Cercle) cercles[forme.id] = dessin.SurPage(forme).x;
    if (forme.id >= 0 && forme.genre == GenreForme::Polygone) losanges[forme.id] = dessin.SurPage(forme, 1).x;
    const Zone zone = dessin.Etendue(forme);
    EXPECT_GE(zone.x, 0);
    EXPECT_LE(zone.x + zone.largeur, dessin.Largeur());
    EXPECT_LE(zone.y + zone.hauteur, dessin.Hauteur());
  }
  ASSERT_EQ(cercles.size(), 3U);
  ASSERT_EQ(losanges.size(), 2U);
  const double zero = cercles[0];
  const double point = (cercles[1] - zero) / 5;
  EXPECT_GT(point, 0);
  EXPECT_NEAR(cercles[2], zero - 30 * point, 1e-9);
  EXPECT_NEAR(losanges[1], zero + 3 * point, 1e-9);
  EXPECT_NEAR(losanges[3], zero + 12 * point, 1e-9);
  // The interval of one standard deviation.
  const bool barre = std::any_of(dessin.Formes().begin(), dessin.Formes().end(), [&](const Forme& forme) {
    return forme.id == 1 && forme.genre == GenreForme::Ligne &&
           std::abs(dessin.SurPage(forme, 0).x - (zero - 2 * point)) < 1e-9 &&
           std::abs(dessin.SurPage(forme, 1).x - (zero + 12 * point)) < 1e-9;
  });
  EXPECT_TRUE(barre);
  EXPECT_FALSE(DessinerEffets({"vide", {}}).Formes().empty());
}

}  // namespace

}  // namespace quelvar::regression
