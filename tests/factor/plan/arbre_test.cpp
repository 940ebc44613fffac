#include "factor/plan/arbre.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>

using namespace quelvar::tables;
using namespace quelvar::factor;

namespace quelvar {
namespace {

// Links as "12 23 ": the two elements, of one digit each.
std::string Noms(const std::vector<Lien>& liens) {
  std::string noms;
  for (const Lien& lien : liens) noms += std::to_string(lien.premier) + std::to_string(lien.second) + ' ';
  return noms;
}

// Five elements; 4 and 5 are supplementary. The link 1-3 closes the triangle 1-2-3, 2-5 and 3-5 are equal.
const std::vector<Lien> kLiens = {{1, 2, 90}, {2, 3, 80},    {1, 3, 70},    {4, 5, 33.3F}, {2, 5, 20},
                                  {3, 5, 20}, {1, 4, 10.5F}, {2, 4, -0.5F}, {1, 5, -3}};

std::vector<SommetArbre> Sommets() {
  std::vector<SommetArbre> sommets(5, {false, false, 100, 100});
  sommets[3].supplementaire = sommets[4].supplementaire = true;
  return sommets;
}

TEST(Arbre, LinksKeptByValueStatusAndCount) {
  const struct {
    std::string cas;
    OptionsArbre options;
    std::string traces;
  } cas[] = {
      {"all, up to the first negative one", {}, "12 23 13 45 25 35 14 "},
      {"lower limit: of single precision as the values", {.ecMin = 33.3}, "12 23 13 45 "},
      {"lower limit above a value", {.ecMin = 33.4}, "12 23 13 "},
      {"upper limit: those above are passed over", {.ecSup = 33.3}, "45 25 35 14 "},
      {"mode 1", {.mode = ModeArbre::SaufEntreSupplementaires}, "12 23 13 25 35 14 "},
      {"mode 2", {.mode = ModeArbre::SaufSupplementaires}, "12 23 13 "},
      {"progressive: counts the links read",
       {.mode = ModeArbre::SaufEntreSupplementaires, .progressif = 4},
       "12 23 13 25 "},
      {"progressive from nothing", {.progressif = 0}, ""},
      {"tree: the first of equal links enters", {.arbre = true}, "12 23 45 25 "},
      {"tree of the active elements", {.mode = ModeArbre::SaufSupplementaires, .arbre = true}, "12 23 "},
      {"tree of the links below a limit", {.ecSup = 80, .arbre = true}, "23 13 45 25 "},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.cas);
    EXPECT_EQ(Noms(ArbreMaximum(kLiens, Sommets(), c.options).traces), c.traces);
  }
}

TEST(Arbre, ChosenElementsAndTheCpfLevelDecideWhatIsDrawnOfTheTree) {
  std::vector<SommetArbre> sommets = Sommets();
  sommets[4].choisi = true;
  EXPECT_EQ(Noms(ArbreMaximum(kLiens, sommets, {.arbre = true}).traces), "45 25 ");
  sommets[4].choisi = false;

  sommets[1].cpfHorizontal = 30;  // element 2 is above the level on one axis, element 4 on none
  sommets[3].cpfHorizontal = sommets[3].cpfVertical = 49;
  const LiensDuGraphe liens = ArbreMaximum(kLiens, sommets, {.arbre = true, .niveauCpf = 50});
  EXPECT_EQ(Noms(liens.traces), "12 23 25 ");
  EXPECT_TRUE(liens.atteints[3]);  // by a link that is not drawn
}

TEST(Arbre, IsThatOfTheElementsShown) {
  std::vector<SommetArbre> sommets = Sommets();
  sommets[1].montre = false;
  const LiensDuGraphe liens = ArbreMaximum(kLiens, sommets, {.arbre = true, .aCouvrir = 4});
  EXPECT_EQ(Noms(liens.traces), "13 45 35 ") << "1-3 closes no triangle without element 2";
  EXPECT_TRUE(liens.complet);
}

TEST(Arbre, TheMessageNeedsALinkLeftWhenTheTreeIsComplete) {
  const auto complet = [](std::vector<Lien> liens, std::size_t elements, OptionsArbre options = {.arbre = true}) {
    return ArbreMaximum(liens, std::vector<SommetArbre>(elements), options).complet;
  };
  EXPECT_TRUE(complet({{1, 2, 9}, {2, 3, 8}, {1, 3, 7}}, 3));
  EXPECT_FALSE(complet({{1, 2, 9}, {2, 3, 8}}, 3));                                            // nothing left
  EXPECT_FALSE(complet({{1, 2, 9}, {2, 3, 8}, {1, 3, -1}}, 3));                                // negative
  EXPECT_FALSE(complet({{1, 2, 9}, {2, 3, 8}, {1, 3, 7}}, 4));                                 // element 4 has no link
  EXPECT_TRUE(complet({{1, 2, 9}, {2, 3, 8}, {1, 3, 7}}, 4, {.arbre = true, .aCouvrir = 3}));  // nor is to have one
  EXPECT_FALSE(complet({{1, 2, 9}, {2, 3, 8}, {1, 3, 7}}, 3, {.arbre = false}));
  EXPECT_TRUE(ArbreMaximum(kLiens, Sommets(), {.arbre = true}).complet);
}

TEST(Arbre, BrokenRecordsStopOrArePassedOver) {
  const std::vector<Lien> liens = {
      {0, 2, 90}, {1, 6, 80}, {-3, 1, 70}, {1, 2, 60}, {2, 3, std::numeric_limits<float>::quiet_NaN()}, {3, 4, 50}};
  const LiensDuGraphe resultat = ArbreMaximum(liens, Sommets(), {.pajek = true});
  EXPECT_EQ(Noms(resultat.traces), "12 ");
  EXPECT_EQ(resultat.lus, 1U);
  EXPECT_TRUE(ArbreMaximum(kLiens, {}, {.arbre = true}).traces.empty());
}

// The tree as rows of marks: one row for each link kept, merged with the rows that it touches.
std::string ArbreParMarques(const std::vector<Lien>& liens, std::size_t n) {
  std::vector<std::vector<bool>> lignes;
  std::string gardes;
  for (const Lien& lien : liens) {
    if (!lignes.empty() && std::count(lignes.back().begin(), lignes.back().end(), true) == static_cast<long>(n)) break;
    std::vector<bool> nouvelle(n);
    const auto i = static_cast<std::size_t>(lien.premier) - 1;
    const auto j = static_cast<std::size_t>(lien.second) - 1;
    nouvelle[i] = nouvelle[j] = true;
    for (const auto& ligne : lignes)
      if (ligne[i] || ligne[j])
        for (std::size_t k = 0; k < n; ++k) nouvelle[k] = nouvelle[k] || ligne[k];
    if (std::find(lignes.begin(), lignes.end(), nouvelle) != lignes.end()) continue;
    for (auto& ligne : lignes)
      if (ligne[i] || ligne[j]) ligne = nouvelle;
    lignes.push_back(nouvelle);
    gardes += Noms({lien});
  }
  return gardes;
}

TEST(Arbre, SameTreeAsByRowsOfMarks) {
  std::mt19937 hasard(11);
  for (int cas = 0; cas < 300; ++cas) {
    const std::size_t n = 2 + hasard() % 8;
    std::vector<Lien> liens;
    for (std::int16_t i = 1; static_cast<std::size_t>(i) <= n; ++i)
      for (auto j = static_cast<std::int16_t>(i + 1); static_cast<std::size_t>(j) <= n; ++j)
        if (hasard() % 3 != 0) liens.push_back({i, j, static_cast<float>(hasard() % 6)});
    std::shuffle(liens.begin(), liens.end(), hasard);
    std::stable_sort(liens.begin(), liens.end(), [](const Lien& a, const Lien& b) { return a.valeur > b.valeur; });
    EXPECT_EQ(Noms(ArbreMaximum(liens, std::vector<SommetArbre>(n), {.arbre = true}).traces),
              ArbreParMarques(liens, n));
  }
}

}  // namespace
}  // namespace quelvar
