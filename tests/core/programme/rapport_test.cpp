#include "core/programme/rapport.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/panne/erreur.h"

namespace quelvar {
namespace {

TEST(Report, FixedNumbers) {
  const struct {
    double valeur;
    int entiere, decimales;
    std::string_view texte;
  } cas[] = {{12345, 4, 0, "12345"}, {123456, 4, 0, "$123456"}, {2.5, 4, 0, "   2"},     {3.5, 4, 0, "   4"},
             {7, 3, 1, "  7.0"},     {12345, 3, 1, "$12345.0"}, {1234, 3, 1, "$1234.0"}, {-0.3, 3, 1, " -0.3"},
             {-0.04, 3, 1, "  0.0"}, {0.05, 3, 1, "  0.0"},     {0.15, 1, 1, "0.2"},     {99.96, 3, 1, "100.0"},
             {-12, 2, 0, "-12"},     {-123, 2, 0, "$-123"},     {0.001, 1, 3, "0.001"},  {1e15, 3, 0, "$1E+15"}};
  for (const auto& [valeur, entiere, decimales, texte] : cas)
    EXPECT_EQ(NombreFixe(valeur, entiere, decimales), texte) << valeur;
  EXPECT_THROW(NombreFixe(std::numeric_limits<double>::quiet_NaN(), 3, 1), Erreur);
}

TEST(Report, Frames) {
  EXPECT_EQ(CadreGauche("abc", 5), "abc  ");
  EXPECT_EQ(CadreGauche("abcdef", 4), "abcd");
  EXPECT_EQ(CadreDroit("abc", 5), "  abc");
  EXPECT_EQ(CadreDroit("abcdef", 4), "abcd");
  EXPECT_EQ(EntierDroit(12, 4), "  12");
  EXPECT_EQ(EntierDroit(12345, 4), "12345");
}

}  // namespace
}  // namespace quelvar
