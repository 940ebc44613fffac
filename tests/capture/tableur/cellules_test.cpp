#include "capture/tableur/cellules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelvar::capture {
namespace {

std::vector<std::string> Cellules(std::string_view ligne, char separateur = ';') {
  std::vector<std::string> cellules;
  LigneDeTableur decoupe(ligne, separateur);
  for (std::string_view cellule; decoupe.Suivante(cellule);) cellules.emplace_back(cellule);
  return cellules;
}

TEST(LigneDeTableur, QuotesBlanksAndEmptyCells) {
  const struct {
    std::string_view ligne;
    std::vector<std::string> cellules;
  } cas[] = {{"a;b", {"a", "b"}},
             {"", {""}},
             {";", {"", ""}},
             {" a ; b ", {"a", " b "}},
             {"\"a;b\";c", {"a;b", "c"}},
             {"\"a\"\"b\";c", {"a\"b", "c"}},
             {"\"a\"x y;c", {"ax y", "c"}},
             {"\" a \";\" b \"", {"a", " b "}},
             {"a\"b;c\"d", {"a\"b", "c\"d"}},
             {"\"a;b", {"a;b"}},
             {"\"\";c", {"", "c"}},
             {" \"a;b\"", {"\"a", "b\""}}};
  for (const auto& [ligne, cellules] : cas) EXPECT_EQ(Cellules(ligne), cellules) << ligne;
}

TEST(LigneDeTableur, DigitsReadByFourAreThoseReadOneByOne) {
  // Each place of the eight bytes in turn holds what a run of digits and separators may not hold.
  for (const char intrus : std::string("/:;\t a\"-\xB1\x00", 10))
    for (std::size_t place = 0; place < 8; ++place) {
      std::string ligne = "1;2;3;9;5;;7";
      ligne[place] = intrus;
      std::vector<std::string> cellules;
      LigneDeTableur decoupe(ligne, ';');
      const char* octets = nullptr;
      std::string_view cellule;
      do {
        while (const unsigned nombre = decoupe.ChiffresSuivants(octets))
          for (unsigned i = 0; i < nombre; ++i) cellules.emplace_back(1, octets[2 * i]);
        if (!decoupe.Suivante(cellule)) break;
        cellules.emplace_back(cellule);
      } while (true);
      EXPECT_EQ(cellules, Cellules(ligne)) << ligne;
    }
}

}  // namespace
}  // namespace quelvar::capture
