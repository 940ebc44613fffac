#include "crosstab/tableau/codes.h"

#include <gtest/gtest.h>

#include "support/environnement.h"
#include "support/erreur.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

class CodesTest : public testing::Test {
 protected:
  MatriceCodes Charger(std::string_view octets, const std::vector<ChampPlafonne>& champs, std::int64_t individus) {
    essai::EcrireOctets(Donnees(), octets);
    const Dialogue dialogue;
    Progression progression(dialogue, individus);
    return ChargerCodes(Donnees(), champs, individus, progression);
  }
  int Numero(std::string_view octets, const std::vector<ChampPlafonne>& champs, std::int64_t individus) {
    return essai::NumeroLeve([&] { Charger(octets, champs, individus); });
  }
  std::filesystem::path Donnees() const { return dossier_.Chemin() / "ENQ.DAT"; }

 private:
  essai::DossierTemporaire dossier_;
};

std::vector<int> Valeurs(const MatriceCodes& codes, std::size_t question) {
  const auto octets = codes.Codes(question);
  return {octets.begin(), octets.end()};
}

// Every writing of a field gives what the lenient conversion gives, brought to 0 above the ceiling and below 0.
TEST_F(CodesTest, LectureDesChamps) {
  const std::vector<ChampPlafonne> champs = {{{0, 1}, 5}, {{1, 2}, 20}, {{3, 3}, 99}, {{6, 2}, 12}};
  const MatriceCodes codes = Charger(
      "1 2 12 3\r\n"
      "620099 9\r\n"
      "A21100-3\r\n"
      " 5 ABC1\r\n"  // the last field is cut by the end of the line
      "3\r\n"        // all others are past it
      "\r\n"
      "5-1 -7.9\n"          // LF alone; -7 and 0.9, rounded to 1
      "2\t8 1D+4 ignored",  // a tab; 1D+4 cut to "1D "
      champs, 8);
  EXPECT_EQ(Valeurs(codes, 0), (std::vector<int>{1, 0, 0, 0, 3, 0, 5, 2}));
  EXPECT_EQ(Valeurs(codes, 1), (std::vector<int>{2, 20, 0, 5, 0, 0, 0, 8}));
  EXPECT_EQ(Valeurs(codes, 2), (std::vector<int>{12, 99, 0, 0, 0, 0, 0, 1}));
  EXPECT_EQ(Valeurs(codes, 3), (std::vector<int>{3, 9, 0, 1, 0, 0, 1, 4}));
}

TEST_F(CodesTest, TailleAnnoncee) {
  const std::vector<ChampPlafonne> champs = {{{0, 1}, 9}};
  EXPECT_EQ(Valeurs(Charger("1\r\n2\r\n3\r\n", champs, 2), 0), (std::vector<int>{1, 2}));
  EXPECT_EQ(Charger("1\r\n", champs, 0).Individus(), 0U);
  EXPECT_EQ(Numero("1\r\n2\r\n", champs, 3), kFinDeFichierDepassee);
  EXPECT_EQ(Numero("1\r\n2", champs, 1'000'000'000'000'000), kFinDeFichierDepassee);  // no memory is asked for them
  EXPECT_EQ(Numero("9E9\r\n", {{{0, 3}, 99}}, 1), kDepassementCapacite);
}

// More lines than a block holds, of a length that does not divide it.
TEST_F(CodesTest, PlusieursBlocs) {
  std::string octets;
  const int individus = 20011;
  for (int i = 0; i < individus; ++i) octets += std::string(60, 'x') + std::to_string(10 + i % 90) + "\n";
  const MatriceCodes codes = Charger(octets, {{{60, 2}, 99}, {{61, 1}, 9}}, individus);
  for (int i = 0; i < individus; ++i) {
    ASSERT_EQ(codes.Codes(0)[static_cast<std::size_t>(i)], 10 + i % 90);
    ASSERT_EQ(codes.Codes(1)[static_cast<std::size_t>(i)], i % 10);
  }
}

// The counts of a plain loop, with and without a filter, for numbers of individuals around a multiple of four.
TEST_F(CodesTest, ComptesDuCroisement) {
  for (const std::int64_t individus : {0, 1, 3, 4, 5, 1003}) {
    std::string octets;
    Matrice attendus(3, 8);
    std::vector<Matrice> parModalite(4, Matrice(3, 8));
    for (std::int64_t i = 0; i < individus; ++i) {
      const auto filtre = static_cast<std::size_t>(i * 7 % 11 % 4);
      const auto ligne = static_cast<std::size_t>(i * 5 % 13 % 3);
      const auto colonne = static_cast<std::size_t>(i * i % 17 % 8);
      octets += std::to_string(filtre) + std::to_string(ligne) + std::to_string(colonne) + "\r\n";
      attendus(ligne, colonne) += 1;
      parModalite[filtre](ligne, colonne) += 1;
    }
    const MatriceCodes codes = Charger(octets, {{{0, 1}, 3}, {{1, 1}, 2}, {{2, 1}, 7}}, individus);
    const std::vector<Matrice> sansFiltre = CompterCroisement(codes, {kSansFiltre, 1, 2});
    ASSERT_EQ(sansFiltre.size(), 1U);
    EXPECT_TRUE(std::ranges::equal(sansFiltre[0].Valeurs(), attendus.Valeurs())) << individus;
    const std::vector<Matrice> filtres = CompterCroisement(codes, {0, 1, 2});
    ASSERT_EQ(filtres.size(), 4U);
    for (std::size_t f = 0; f < 4; ++f)
      EXPECT_TRUE(std::ranges::equal(filtres[f].Valeurs(), parModalite[f].Valeurs())) << individus << " " << f;
  }
}

}  // namespace
}  // namespace quelvar
