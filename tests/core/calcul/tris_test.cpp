#include "core/calcul/tris.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace quelvar {
namespace {

// The digit is the key, the letter tells equal keys apart.
std::vector<std::string> Trier(std::vector<std::string> elements, bool decroissant) {
  TrierParTas(std::span(elements), [&](const std::string& a, const std::string& b) {
    return decroissant ? a.front() > b.front() : a.front() < b.front();
  });
  return elements;
}

// Each heap was followed by hand.
TEST(TriParTas, PlaceDesEgaux) {
  using Textes = std::vector<std::string>;
  EXPECT_EQ(Trier({"5a", "5b", "5c", "5d"}, true), (Textes{"5b", "5c", "5d", "5a"}));
  EXPECT_EQ(Trier({"1a", "2b", "1c", "2d", "1e"}, true), (Textes{"2b", "2d", "1c", "1e", "1a"}));
  EXPECT_EQ(Trier({"2a", "1b", "2c", "1d", "2e"}, false), (Textes{"1b", "1d", "2c", "2e", "2a"}));
  EXPECT_EQ(Trier({"1a", "1b"}, true), (Textes{"1b", "1a"}));
  EXPECT_EQ(Trier({"1a"}, true), (Textes{"1a"}));
  EXPECT_EQ(Trier({}, true), (Textes{}));
}

TEST(TriParTas, OrdreEtSuivi) {
  std::mt19937 hasard(5);
  for (std::size_t taille = 0; taille < 200; ++taille) {
    std::vector<unsigned> valeurs(taille);
    for (unsigned& valeur : valeurs) valeur = static_cast<unsigned>(hasard() % 50);
    std::vector<unsigned> attendu = valeurs;
    std::sort(attendu.begin(), attendu.end());
    std::vector<std::size_t> restes;
    TrierParTas(
        std::span(valeurs), [](unsigned a, unsigned b) { return a < b; },
        [&](std::size_t reste) { restes.push_back(reste); });
    EXPECT_EQ(valeurs, attendu);
    EXPECT_EQ(restes.size(), taille < 2 ? 0 : taille - 1);
  }
}

}  // namespace
}  // namespace quelvar
