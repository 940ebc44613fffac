#include "capture/apercu/choix/reglages.h"

#include <gtest/gtest.h>

namespace quelvar::capture {
namespace {

TEST(ReglagesDeColonne, BoundsAsTheyAreTyped) {
  using Bornes = std::vector<double>;
  EXPECT_EQ(BornesDe("15 25 35"), (Bornes{15, 25, 35}));
  EXPECT_EQ(BornesDe(" 0;2,5;10|20 "), (Bornes{0, 2.5, 10, 20}));
  EXPECT_EQ(BornesDe("15"), (Bornes{15}));
  for (const char* refuse : {"", " ; ", "15 15", "25 15", "15 x", "15 25x"})
    EXPECT_EQ(BornesDe(refuse), std::nullopt) << refuse;
  EXPECT_EQ(TexteDesBornes({0, 2.5, 10}), "0 2.5 10");
}

TEST(ReglagesDeColonne, TextsInTheOrderOfTheirCodes) {
  FaitsDeColonne colonne;
  colonne.valeurs = {{"Femme", 2}, {"Homme", 5}, {"NSP", 9}};
  const auto dit = [&](const ChoixDeColonne& choix) {
    std::string texte;
    for (const TexteCode& code : TextesCodes(choix, colonne))
      texte += std::to_string(code.code) + code.texte + std::to_string(code.effectif) + " ";
    return texte;
  };
  ChoixDeColonne choix;
  EXPECT_EQ(dit(choix), "1Femme2 2Homme5 3NSP9 ");
  choix.nonReponses = {"NSP"};
  EXPECT_EQ(dit(choix), "0NSP9 1Femme2 2Homme5 ");
  choix.ordre = Ordre::Frequence;
  EXPECT_EQ(dit(choix), "0NSP9 1Homme5 2Femme2 ");
  choix.ordre = Ordre::Donne;
  choix.nonReponses.clear();
  choix.textes = {"NSP"};
  EXPECT_EQ(dit(choix), "1NSP9 2Femme2 3Homme5 ") << "those not named come behind";
}

TEST(ReglagesDeColonne, TextsThatCountOrAreZero) {
  FaitsDeColonne colonne;
  colonne.valeurs = {{"Non", 4}, {"Oui", 3}};
  ChoixDeColonne choix;
  choix.genre = Genre::Multiple;
  choix.reponses = {"Oui"};
  std::vector<TexteCompte> textes = TextesComptes(choix, colonne);
  ASSERT_EQ(textes.size(), 2U);
  EXPECT_FALSE(textes[0].compte);
  EXPECT_TRUE(textes[1].compte);
  textes[0].compte = true;
  EXPECT_EQ(AvecTextesComptes(choix, textes).reponses, (std::vector<std::string>{"Non", "Oui"}));

  colonne.fautives = {{2, "abc"}, {5, "NSP"}, {9, "abc"}};
  choix.genre = Genre::Codes;
  choix.nonReponses = {"NSP"};
  textes = TextesComptes(choix, colonne);
  ASSERT_EQ(textes.size(), 2U);
  EXPECT_EQ(textes[0].effectif, 2);
  EXPECT_TRUE(textes[0].compte);
  EXPECT_FALSE(textes[1].compte);
  textes[0].compte = false;
  EXPECT_EQ(AvecTextesComptes(choix, textes).nonReponses, (std::vector<std::string>{"abc", "NSP"}));
  choix.genre = Genre::Longs;
  EXPECT_TRUE(TextesComptes(choix, colonne).empty());
}

}  // namespace
}  // namespace quelvar::capture
