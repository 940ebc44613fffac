#include "sorts/triapl/triapl.h"

#include <gtest/gtest.h>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "sorts/triapl/edition.h"
#include "sorts/triapl/tableau.h"
#include "support/programme.h"

using namespace quelvar::sorts;

namespace quelvar {
namespace {

TEST(TableauPlat, LabelsAreThoseOfTheModalities) {
  IntitulesModalites intitules;
  intitules.Ajouter("AAA1", "un");
  intitules.Ajouter("AAA3", "");
  intitules.Ajouter("AAAA", "dix");
  const Question question = LireLigneQuestion("AAA   110");
  const TableauEdite tableau = DresserTableau(question, {0, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1}, 4, &intitules);
  ASSERT_EQ(tableau.colonnes.size(), 5U);
  EXPECT_EQ(tableau.colonnes[1].intitule, "un");
  EXPECT_EQ(tableau.colonnes[2].intitule, "") << "without a line in the file";
  EXPECT_EQ(tableau.colonnes[3].intitule, "AAA3") << "an empty label gives the name";
  EXPECT_EQ(tableau.colonnes[4].titre, "10");
  EXPECT_EQ(tableau.colonnes[4].intitule, "dix");
  const TableauEdite sans =
      DresserTableau(LireLigneQuestion("AAA   136"), std::vector<double>(37, 1.0), 37, &intitules);
  EXPECT_EQ(sans.colonnes[2].intitule, "") << "no modalities from code-max 36 on";
}

TEST(TableauPlat, SharesRoundHalfUpAndSurviveAnEmptyTotal) {
  EXPECT_EQ(PartEnDixiemes(1, 6), 167);
  EXPECT_EQ(PartEnDixiemes(1, 2000), 1) << "0.5 rounds up";
  EXPECT_EQ(PartEnDixiemes(1, 2001), 0);
  EXPECT_EQ(PartEnDixiemes(5, 0), 0);
}

class RunTriapl : public essai::RunDeProgramme {
 protected:
  Fin Executer(const OptionsTriapl& options = {}) { return Triapl(contexte_, options); }
};

TEST_F(RunTriapl, FiftyOverflowsPassAndTheNextOneStops) {
  Ecrire("ENQ.POS", "T\n 60 \nAAA   1 2\n");
  std::string donnees;
  for (int i = 0; i < 60; ++i) donnees += "9\n";
  Ecrire("ENQ.DAT", donnees.substr(0, 100));
  EXPECT_EQ(Executer({.limite = 50}), Fin::Normale);
  EXPECT_EQ(bips_, 51) << "fifty overflows and the short file";
  Ecrire("ENQ.DAT", donnees);
  EXPECT_EQ(Executer({.limite = 50}), Fin::Arret);
  EXPECT_NE(montre_.find("Ligne 51 Valeur 9\r\nArret pour nombre de depassement de code-max > 50 \r\n"),
            std::string::npos);
}

TEST_F(RunTriapl, BothPassesCountTheSame) {
  // Overflows, negatives, blanks, letters, short lines and decimals in fields of one, two and three positions.
  Ecrire("ENQ.POS", "T\n 0 \nAAA   1 4\nBBB   212\nCCC   4L3\nDDD   7 2\n");
  Ecrire("ENQ.DAT", "1 2  33\n9-1 .51\n-99999\n\nx1 1e27\n412100 \n2\t3 4 2\n");
  OptionsTriapl options;
  Executer(options);
  const std::string rapide = montre_;
  options.limite = 30000;
  Executer(options);
  std::string lente;
  for (std::size_t i = 0; i < montre_.size();) {
    const std::size_t fin = montre_.find("\r\n", i) + 2;
    if (montre_.compare(i, 11, "Depassement") != 0) lente += montre_.substr(i, fin - i);
    i = fin;
  }
  EXPECT_EQ(lente, rapide);
  EXPECT_NE(rapide.find("Question CCC"), std::string::npos);
}

TEST_F(RunTriapl, ABrokenInputIsToldAndLosesNothing) {
  const struct {
    std::string_view pos, donnees, texte;
  } cas[] = {
      {"", "1\n", "Il y a eu tentative de lire un fichier deja termine"},
      {"T\n", "1\n", "Il y a eu tentative de lire un fichier deja termine"},
      {"T\n 1 \nAAA  -1 2\n", "1\n", "position =-1  code maximum= 2 "},
      {"T\n 1 \nAAA9E9  2\n", "1\n", "notez le numero =  6 "},
      {"T\n 1 \nAAA   1L3\n", "9E9\n", "notez le numero =  6 "},
      {"T\n 6 ( 3 )\nAAA   1 2\n", "", "notez le numero =  11 "},
  };
  for (const auto& [pos, donnees, texte] : cas) {
    Ecrire("ENQ.POS", pos);
    Ecrire("ENQ.DAT", donnees);
    Ecrire("ENQ.TRG", "a\nb\nc\nd\nancien");
    // A weighting only matters without the triangle.
    EXPECT_EQ(Executer({.triangulaire = pos.find('(') == std::string_view::npos}), Fin::Arret) << pos;
    EXPECT_NE(montre_.find(texte), std::string::npos) << pos << montre_;
    EXPECT_EQ(Lire("ENQ.TRG"), "a\nb\nc\nd\nancien");
  }
  Ecrire("ENQ.TRG", "a\nb\nc\n");
  Ecrire("ENQ.POS", "T\n 1 \nAAA   1 2\n");
  EXPECT_EQ(Executer({.triangulaire = true}), Fin::Arret) << "a .TRG of three lines";
  std::filesystem::remove(dossier_.Chemin() / "ENQ.DAT");
  std::filesystem::create_directory(dossier_.Chemin() / "ENQ.DAT");
  EXPECT_EQ(Executer(), Fin::Arret);
  EXPECT_TRUE(Dit("est un répertoire et non un fichier"_w)) << montre_;
}

TEST_F(RunTriapl, OddShapesOfTheSurveyAreCountedAsTheyAre) {
  Ecrire("ENQ.POS", "T\n 3 \nAAA9999 2\nBBB   1xy\n");
  Ecrire("ENQ.DAT", std::string(9998, ' ') + "1\n2\n" + std::string(100000, '7') + "\n1\n");
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_NE(montre_.find("Question AAA Position 9999    Code-max.   2 \r\nTot.    0    1\r\n   3    2    1\r\n"),
            std::string::npos);
  EXPECT_NE(montre_.find("Question BBB Position    1    Code-max.   0 \r\nTot.    0\r\n   3    3\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace quelvar
