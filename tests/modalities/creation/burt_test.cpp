#include "modalities/creation/burt.h"

#include <gtest/gtest.h>

#include <random>

using namespace quelvar::modalities;

namespace quelvar {
namespace {

using Individus = std::vector<std::vector<std::uint32_t>>;

// Any share of the modalities, some individuals with none and some with all.
Individus Tirer(std::size_t modalites, int individus, unsigned graine) {
  std::mt19937 hasard(graine);
  Individus tires;
  for (int n = 0; n < individus; ++n) {
    const auto seuil = hasard() % 5;
    tires.emplace_back();
    for (std::uint32_t j = 0; j < modalites; ++j)
      if (hasard() % 4 < seuil) tires.back().push_back(j);
  }
  return tires;
}

// Pair by pair, the way a hand would count.
std::vector<std::vector<std::int64_t>> CompterPairParPaire(std::size_t modalites, const Individus& individus) {
  std::vector<std::vector<std::int64_t>> effectifs(modalites, std::vector<std::int64_t>(modalites));
  for (const auto& presentes : individus)
    for (const std::uint32_t i : presentes)
      for (const std::uint32_t j : presentes) ++effectifs[i][j];
  return effectifs;
}

// Sizes around the words and runs of the presence vectors; numbers of individuals around a byte and beyond a block.
TEST(TableBurt, CountsAsPairByPair) {
  for (const std::size_t modalites : {0U, 1U, 7U, 8U, 31U, 32U, 33U, 65U}) {
    for (const int individus : {0, 1, 3, 255, 256, 700}) {
      const Individus tires = Tirer(modalites, individus, static_cast<unsigned>(individus));
      TableBurt burt(modalites);
      for (const auto& presentes : tires) burt.Compter(presentes);
      burt.Achever();
      const auto attendus = CompterPairParPaire(modalites, tires);
      std::int64_t plusGrand = 0;
      std::vector<std::int64_t> ligne(modalites);
      for (std::size_t i = 0; i < modalites; ++i) {
        burt.Ligne(i, ligne);
        EXPECT_EQ(ligne, attendus[i]) << modalites << " modalities, " << individus << " individuals, row " << i;
        for (const std::int64_t effectif : attendus[i]) plusGrand = std::max(plusGrand, effectif);
      }
      EXPECT_EQ(burt.PlusGrandEffectif(), plusGrand);
    }
  }
}

TEST(TableBurt, ManyIndividualsPassEveryCarry) {
  TableBurt burt(40);
  const std::vector<std::uint32_t> paires{0, 2, 39};
  const std::vector<std::uint32_t> impaires{2, 38};
  for (int n = 0; n < 100000; ++n) burt.Compter(n % 2 == 0 ? paires : impaires);
  burt.Achever();
  EXPECT_EQ(burt.Effectif(2, 2), 100000);
  EXPECT_EQ(burt.Effectif(39, 0), 50000);
  EXPECT_EQ(burt.Effectif(38, 2), 50000);
  EXPECT_EQ(burt.Effectif(38, 39), 0);
}

}  // namespace
}  // namespace quelvar
