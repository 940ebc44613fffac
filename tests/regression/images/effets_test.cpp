// The pictures of the regression: where the marks stand.
#include "regression/images/effets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "regression/anatab.h"
#include "support/environnement.h"

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
  for (const FormeDessinee& forme : dessin.Formes()) {
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
  const bool barre = std::any_of(dessin.Formes().begin(), dessin.Formes().end(), [&](const FormeDessinee& forme) {
    return forme.id == 1 && forme.genre == GenreForme::Ligne &&
           std::abs(dessin.SurPage(forme, 0).x - (zero - 2 * point)) < 1e-9 &&
           std::abs(dessin.SurPage(forme, 1).x - (zero + 12 * point)) < 1e-9;
  });
  EXPECT_TRUE(barre);
  EXPECT_FALSE(DessinerEffets({"vide", {}}).Formes().empty());
}

// Both modalities of LEC begin alike: their one effect bears the rank of the last, which is the reference. All who have
// JOB3 say yes, and its effect is not estimated.
TEST(ImageDesEffets, UnEffetCommunAUnPointUnEffetNonEstimeNEnAPas) {
  const essai::DossierTemporaire dossier;
  essai::EcrireOctets(dossier.Chemin() / "ENQ.MOD",
                      "ENQ\r\n FMT=1\r\nCIN1 Y oui\r\nCIN2   non\r\nLEC1 X LEC: oui\r\nLEC2 R LEC: non\r\n"
                      "JOB1 R ouvrier\r\nJOB2 X cadre\r\nJOB3 X rentier\r\n");
  std::string individus;
  const auto ajouter = [&](std::string_view reponses, int nombre) {
    for (int i = 0; i < nombre; ++i) individus += Joindre({"    ", reponses, "\r\n"});
  };
  ajouter("1010100", 9);
  ajouter("0110100", 3);
  ajouter("1001100", 4);
  ajouter("0101100", 6);
  ajouter("1010010", 8);
  ajouter("0110010", 2);
  ajouter("1001010", 7);
  ajouter("0101010", 5);
  ajouter("1010001", 5);
  essai::EcrireOctets(dossier.Chemin() / "ENQ.CDG", individus);
  Dialogue muet;
  const Contexte contexte{dossier.Chemin(), "ENQ", 1, &muet};
  ImageDesEffets image;
  ASSERT_EQ(Anatab(contexte, {}, image), Fin::Normale);
  ASSERT_EQ(image.lignes.size(), 5U);
  const LigneDEffet& lecture = image.lignes[0];
  // 75 - 40 points on 22 individuals, 80 - 58.3 on 22.
  ASSERT_TRUE(lecture.moyenne);
  EXPECT_NEAR(*lecture.moyenne, (35.0 + 80 - 700.0 / 12) / 2, 1e-6);
  EXPECT_TRUE(lecture.logistique);
  EXPECT_FALSE(image.lignes[1].moyenne);
  EXPECT_TRUE(image.lignes[3].logistique);
  EXPECT_FALSE(image.lignes[4].moyenne);
  EXPECT_FALSE(image.lignes[4].logistique);
}

}  // namespace

}  // namespace quelvar::regression
