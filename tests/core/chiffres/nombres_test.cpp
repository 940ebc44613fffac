#include "core/chiffres/nombres.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/erreur.h"

namespace quelvar {
namespace {

using essai::NumeroLeve;

TEST(Nombres, LenientConversion) {
  const struct {
    double valeur;
    std::vector<std::string_view> textes;
  } cas[] = {{0, {"", "   ", "abc", "--5", "E5", ".", "-", "0x10", "inf", "1E-400"}},
             {1, {"1\t2", "1,5", "1E", "1E+"}},
             {12, {"12", "  12  ", "12X34"}},
             {5, {"+5", "5."}},
             {-5, {"-5", "- 5"}},
             {100, {"1e2", "1D+2", "1 E 2"}},
             {123, {"1 2 3"}},
             {7, {"\t 7"}},
             {1.5, {"1.5"}},
             {1.2, {"1.2.3"}},
             {0.5, {".5"}},
             {0.01, {"1d-2"}},
             {1000, {"1000 EXCL"}},
             {123456789012345678.0, {"123456789012345678"}}};
  for (const auto& [valeur, textes] : cas)
    for (const std::string_view texte : textes) EXPECT_EQ(ValeurDe(texte), valeur) << texte;
  EXPECT_EQ(NumeroLeve([] { ValeurDe("1E999"); }), kDepassementCapacite);
  EXPECT_EQ(ValeurDe(std::string(100000, '0') + "7"), 7);
}

TEST(Nombres, RoundingTakesTiesToEven) {
  EXPECT_EQ(Entier16(2.5), 2);
  EXPECT_EQ(Entier16(3.5), 4);
  EXPECT_EQ(Entier16(-0.5), 0);
  EXPECT_EQ(Arrondir(0.125, 2), 0.12);
  EXPECT_FALSE(std::signbit(Arrondir(-0.001, 2)));
  EXPECT_EQ(Entier16(32767.4), 32767);
  EXPECT_EQ(NumeroLeve([] { Entier16(32767.5); }), kDepassementCapacite);
  EXPECT_EQ(NumeroLeve([] { Entier16(-32769); }), kDepassementCapacite);
  EXPECT_EQ(NumeroLeve([] { Entier64(9.3e18); }), kDepassementCapacite);
  EXPECT_EQ(NumeroLeve([] { Entier64(std::numeric_limits<double>::quiet_NaN()); }), kDepassementCapacite);
}

TEST(Nombres, BareNumbers) {
  EXPECT_EQ(NombreNu(300), " 300 ");
  EXPECT_EQ(NombreNu(-7), "-7 ");
  EXPECT_EQ(NombreNu(0.5), " 0.5 ");
  EXPECT_EQ(NombreNu(-0.25), "-0.25 ");
  EXPECT_EQ(NombreNu(1.0 / 3), " 0.333333333333333 ");
  EXPECT_EQ(NombreNu(1.0F / 3), " 0.3333333 ");
  EXPECT_EQ(NombreNu(1e15), " 1E+15 ");
  EXPECT_EQ(NombreNu(123456789012345.0), " 123456789012345 ");
  EXPECT_EQ(NombreNu(-0.0), " 0 ");
  EXPECT_EQ(NombreBlanc(12), " 12");
  EXPECT_EQ(NumeroLeve([] { Nombre(std::numeric_limits<double>::infinity()); }), kDepassementCapacite);
  EXPECT_EQ(NumeroLeve([] { Nombre(std::numeric_limits<double>::quiet_NaN()); }), kArgumentIncorrect);
}

}  // namespace
}  // namespace quelvar
