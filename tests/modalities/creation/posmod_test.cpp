#include "modalities/creation/posmod.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/programme.h"

using namespace quelvar::modalities;

namespace quelvar {
namespace {

class RunPosmod : public essai::RunDeProgramme {};

TEST_F(RunPosmod, NumbersAbove9999AreLongNames) {
  std::string donnees;
  for (int i = 0; i < 10001; ++i) donnees += i % 2 == 0 ? "1\n" : "2\n";
  Ecrire("ENQ.DAT", donnees);
  Ecrire("ENQ.POS", "T\n 10001 \nSEX   1 2 &ACT&\n");
  ASSERT_EQ(Posmod(contexte_, {.codesZero = false, .individus = true}), Fin::Normale) << montre_;
  const std::string cdg = Lire("ENQ.CDG");
  EXPECT_EQ(cdg.substr(0, 8), "1   10\r\n");
  EXPECT_NE(cdg.find("\r\n999 10\r\n100001\r\n100110\r\n"), std::string::npos) << "1000 fills the four columns";
  EXPECT_EQ(cdg.substr(cdg.size() - 34), "999910\r\n    0110000\r\n    1010001\r\n");
  const std::string brt = Lire("ENQ.BRT");
  EXPECT_EQ(brt.substr(0, 32), "SEX15001   0\r\nSEX2   05000\r\n1   ") << "four digits a cell";
  EXPECT_EQ(brt.substr(brt.size() - 19), "       1   010001\r\n");
}

TEST_F(RunPosmod, ASecondRunKeepsWhatTheFirstOneTold) {
  Ecrire("ENQ.DAT", "12\n21\n");
  Ecrire("ENQ.POS", "T\n 2 \nSEX   1 2 $S$\nAGE   2 2\n**\nreste");
  OptionsPosmod options;
  options.actives = {"SEX"};
  options.supplementaires = {"AGE"};
  ASSERT_EQ(Posmod(contexte_, options), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.POS"), "T\r\n 2 \r\nSEX   1 2 $S$ &ACT&\r\nAGE   2 2 &SUP&\r\n**\r\nreste\r\n");
  const std::string premier = Lire("ENQ.MOD");
  ASSERT_EQ(Posmod(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.MOD"), premier + "**\r\n");
  options.supplementaires.reset();
  ASSERT_EQ(Posmod(contexte_, options), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.POS"), "T\r\n 2 \r\nSEX   1 2 $S$ &ACT&\r\nAGE   2 2\r\n**\r\nreste\r\n");
  ASSERT_EQ(Posmod(contexte_, {.actives = {{"SEX", "AGE"}}}), Fin::Normale);
  EXPECT_NE(Lire("ENQ.MOD").find("AGE0 S \r\nAGE1   \r\nAGE2   \r\n**\r\n"), std::string::npos)
      << "a question that has changed sides follows today's choice";
}

TEST_F(RunPosmod, ACodingThatIsNotMadeAgainIsTold) {
  Ecrire("ENQ.POS", "T\n 2 \nAAA   1 2\nBBB   2 2\n");
  Ecrire("ENQ.DAT", "12\n21\n");
  OptionsPosmod options;
  options.actives = {"AAA", "BBB"};
  for (const bool individus : {false, true, false}) {
    options.individus = individus;
    boites_.clear();
    EXPECT_EQ(Posmod(contexte_, options), Fin::Normale);
    const bool dit =
        std::ranges::any_of(boites_, [](Texte b) { return b.Vue().find("ENQ.CDG reste") != b.Vue().npos; });
    EXPECT_EQ(dit, !individus && Existe("ENQ.CDG"));
  }
}

TEST_F(RunPosmod, TodaysChoiceHoldsForAQuestionThatChangesSides) {
  const struct {
    std::string_view ancien;  // marks of AGE1, AGE2 and SEX1 in the old .MOD
    Reponse reponse;
    std::string_view boite, marques;  // of AGE1, AGE2, SEX1, SEX2
  } cas[] = {
      {"   |   | S ", Reponse::Oui, "actives : SEX\r\nmaintenant supplémentaires : AGE\r\n"_w, " S | S |   |   "},
      {"   |   | S ", Reponse::Non, "supplémentaires : AGE\r\n"_w, "   |   | S |   "},
      {" S |   |   ", Reponse::Oui, "", " S |   |   |   "},
      {" S | S |   ", Reponse::Oui, "", " S | S |   |   "}};
  for (const auto& [ancien, reponse, boite, marques] : cas) {
    Ecrire("ENQ.DAT", "12\n21\n");
    Ecrire("ENQ.POS", "T\n 2 \nSEX   1 2\nAGE   2 2\n");
    Ecrire("ENQ.MOD", Joindre({"ENQ\n x\nAGE1", ancien.substr(0, 3), "Jeunes\nAGE2", ancien.substr(4, 3), "Vieux\nSEX1",
                               ancien.substr(8, 3), "Homme\n"}));
    boites_.clear();
    bouton_ = reponse;
    ASSERT_EQ(Posmod(contexte_, {.actives = {{"SEX"}}, .supplementaires = {{"AGE"}}, .codesZero = false}),
              Fin::Normale);
    ASSERT_EQ(boites_.size(), boite.empty() ? 0U : 1U);
    if (!boite.empty()) {
      EXPECT_NE(boites_[0].find(boite), std::string::npos) << boites_[0];
    }
    EXPECT_TRUE(Lire("ENQ.MOD").find(Joindre({"SEX1", marques.substr(8, 3), "Homme\r\nSEX2", marques.substr(12, 3),
                                              "\r\nAGE1", marques.substr(0, 3), "Jeunes\r\nAGE2", marques.substr(4, 3),
                                              "Vieux\r\n"})) != std::string::npos)
        << Lire("ENQ.MOD");
  }
}

// A name that ends in "0" is marked by the creation, whatever its question: the mark tells nothing of a side.
TEST_F(RunPosmod, AQuestionOfFortyCodesChangesSides) {
  Ecrire("ENQ.DAT", "4012\n4121\n");
  Ecrire("ENQ.POS", "T\n 2 \nAGE   141\nSEX   3 2\nTEL   4 2\n");
  const OptionsPosmod enActif{.actives = {{"AGE", "SEX"}}, .supplementaires = {{"TEL"}}, .codesZero = false};
  ASSERT_EQ(Posmod(contexte_, enActif), Fin::Normale);
  const std::string premier = Lire("ENQ.MOD");
  EXPECT_NE(premier.find("AG39   \r\nAG40 S \r\nAG41   \r\nSEX1   \r\n"), std::string::npos) << premier;
  ASSERT_EQ(Posmod(contexte_, {.actives = {{"SEX", "TEL"}}, .supplementaires = {{"AGE"}}, .codesZero = false}),
            Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("actives : TEL\r\nmaintenant supplémentaires : AGE\r\n"_w), std::string::npos);
  for (const std::string_view ligne : {"AGE1 S \r\n", "AG39 S \r\nAG40 S \r\nAG41 S \r\n"})
    EXPECT_NE(Lire("ENQ.MOD").find(ligne), std::string::npos) << ligne;
  ASSERT_EQ(Posmod(contexte_, enActif), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.MOD"), premier + "**\r\n");
}

// AG36 and AG37 are codes of both questions: each keeps the labels and marks of its own lines.
TEST_F(RunPosmod, SharedNamesFollowTheirPlaceInTheOldFile) {
  const auto codes = [](const std::string& nom, std::string_view marque, std::string_view suite) {
    std::string lignes;
    for (const char code : std::string_view("123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
      lignes += Joindre({nom, std::string(1, code), marque, "\r\n"});
    return Joindre({lignes, "AG36", marque, "\r\nAG37", marque, suite, "\r\n"});
  };
  const std::string age = codes("AGE", "   ", "age 37");
  const std::string agr = codes("AGR", "   ", "agr 37");
  const std::string ageSup = codes("AGE", " S ", "age 37");
  const std::string agrSup = codes("AGR", " S ", "agr 37");
  using Noms = std::vector<std::string>;
  const struct {
    Noms actives, supplementaires;
    std::string ancien, attendu;
    std::string_view boite;
  } cas[] = {
      {{"AGE", "AGR"}, {}, age + agr, age + agr + "**\r\n", ""},
      {{"AGR"}, {}, age + agr, agr + "**\r\n" + age, ""},
      {{"AGE"}, {}, "**\r\n" + agr, codes("AGE", "   ", "") + "**\r\n" + agr, ""},
      {{"AGR"}, {"AGE"}, age + agrSup, agr + ageSup + "**\r\n", "actives : AGR\r\nmaintenant supplémentaires : AGE"_w},
  };
  for (const auto& c : cas) {
    Ecrire("ENQ.DAT", "3736\n3637\n");
    Ecrire("ENQ.POS", "T\n 2 \nAGE   137\nAGR   337\n");
    Ecrire("ENQ.MOD", "ENQ\r\n x\r\n" + c.ancien);
    boites_.clear();
    ASSERT_EQ(Posmod(contexte_, {.actives = c.actives, .supplementaires = c.supplementaires, .codesZero = false}),
              Fin::Normale);
    EXPECT_EQ(Lire("ENQ.MOD").substr(Lire("ENQ.MOD").find("AG")), c.attendu);
    ASSERT_EQ(boites_.size(), c.boite.empty() ? 0U : 1U);
    if (!boites_.empty()) {
      EXPECT_NE(boites_[0].find(c.boite), std::string::npos) << boites_[0];
    }
  }
}

// Q361 is the code 61 of Q31, or the first one of Q36.
TEST_F(RunPosmod, TheFirstCodeOfAQuestionIsNoCodeOfAnother) {
  Ecrire("ENQ.DAT", "6111\n6011\n");
  Ecrire("ENQ.POS", "T\n 2 \nQ31   161\nQ36   3 1\nSEX   4 1\n");
  Ecrire("ENQ.MOD", "ENQ\n x\nQ361   un\nQ310   \n");
  ASSERT_EQ(Posmod(contexte_, {.actives = {{"SEX"}}, .supplementaires = {{"Q36"}}, .codesZero = false}), Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_NE(boites_[0].find("supplémentaires : Q36\r\n"_w), std::string::npos) << boites_[0];
  EXPECT_NE(Lire("ENQ.MOD").find("\r\nQ361 S un\r\n**\r\nQ310   \r\n"), std::string::npos) << Lire("ENQ.MOD");
}

// A place that does not tell the question: the first line of the name is taken, and this is told.
TEST_F(RunPosmod, SharedNamesWithoutAPlaceAreTold) {
  const struct {
    std::string_view ancien, dits;
  } cas[] = {{"AG37 S douteux\n", ": AG37 (AGE), AG37 (AGR)"},
             {"AGR1   \nAG37   douteux\n", ""},
             {"AGZ1   \nAG38   d'une autre\n", ": AG38 (AGE)"},
             {"AGZ1   \nAG38   \n", ""}};
  for (const auto& [ancien, dits] : cas) {
    Ecrire("ENQ.DAT", "3736\n3637\n");
    Ecrire("ENQ.POS", "T\n 2 \nAGE   138\nAGR   337\n");
    Ecrire("ENQ.MOD", Joindre({"ENQ\n x\n", ancien}));
    boites_.clear();
    ASSERT_EQ(Posmod(contexte_, {.actives = {{"AGE", "AGR"}}, .codesZero = false}), Fin::Normale);
    ASSERT_EQ(boites_.size(), dits.empty() ? 0U : 1U) << ancien;
    if (dits.empty()) continue;
    EXPECT_TRUE(boites_[0].ends_with(dits)) << boites_[0];
    EXPECT_NE(Lire("ENQ.PRT").find(boites_[0] + "\r\n"), std::string::npos);
  }
}

TEST_F(RunPosmod, TheProgressCoversTheIndividualsAndIsHidden) {
  Ecrire("ENQ.DAT", "1\n2\n");
  Ecrire("ENQ.POS", "T\n 2 \nSEX   1 2 &ACT&\n");
  std::vector<std::int64_t> maximums;
  dialogue_.montrerProgression = [&](std::int64_t maximum) { maximums.push_back(maximum); };
  Posmod(contexte_, {});
  ASSERT_GE(maximums.size(), 2U);
  EXPECT_EQ(maximums.front(), 2);
  EXPECT_EQ(maximums.back(), 0);
}

TEST_F(RunPosmod, WarningsBeep) {
  Ecrire("ENQ.DAT", "3\n");
  Ecrire("ENQ.POS", "T\n 2 \nSEX   1 2 &ACT&\nDEP   240 &SUP&\n");
  EXPECT_EQ(Posmod(contexte_, {}), Fin::Normale);
  EXPECT_EQ(bips_, 3) << "a code-max above 35, a value above its code-max, a file too short";
}

// What no form would have launched leaves everything, the former report too.
TEST_F(RunPosmod, ANameThatIsNotThereLeavesTheFormerReport) {
  Ecrire("ENQ.DAT", "12\n21\n");
  Ecrire("ENQ.POS", "T\n 2 \nSEX   1 2 &ACT&\nAGE   2 2\n");
  Ecrire("ENQ.PRT", "rapport d'avant\r\n");
  const auto avant = Fichiers();
  OptionsPosmod options;
  options.actives = {"SEX", "ZZZ"};
  EXPECT_EQ(Posmod(contexte_, options), Fin::Arret);
  EXPECT_TRUE(Dit("La question ZZZ n'est pas dans le fichier de positions")) << montre_;
  options.actives->clear();
  EXPECT_EQ(Posmod(contexte_, options), Fin::Arret);
  EXPECT_EQ(Fichiers(), avant);
}

// The marks of an analysed set stay when modalities are named; else the questions named are the ones offered next.
TEST_F(RunPosmod, NamingKeepsTheMarksOfATable) {
  Ecrire("ENQ.DAT", "12\n21\n");
  for (const bool analyse : {false, true}) {
    Ecrire("ENQ.POS", "T\r\n 2 \r\nSEX   1 2 &SUP&\r\nAGE   2 2\r\n");
    if (analyse) Ecrire("ENQ.BRT", "SEX1 1\r\n");
    OptionsPosmod options;
    options.mode = ModePosmod::Modi;
    options.actives = {"AGE"};
    EXPECT_EQ(Posmod(contexte_, options), Fin::Normale);
    EXPECT_EQ(Lire("ENQ.POS"), analyse ? "T\r\n 2 \r\nSEX   1 2 &SUP&\r\nAGE   2 2\r\n"
                                       : "T\r\n 2 \r\nSEX   1 2\r\nAGE   2 2 &ACT&\r\n");
  }
}

// Runs that fail on the way leave every file but the report as it was, and no scratch file behind.
TEST_F(RunPosmod, AFailedRunLeavesTheFilesWhole) {
  Ecrire("ENQ.DAT", "12\n21\n");
  Ecrire("ENQ.POS", "T\n 2 \nSEX   1 2 &ACT&\nAGE   2 2 &ACT&\n");
  Ecrire("ENQ.BRT", "ancien\r\n");
  Ecrire("ENQ.CDG", "ancien\r\n");
  Ecrire("ENQ.MOD", "T\r\n");  // its second line lacks
  auto avant = Fichiers("ENQ.PRT");
  EXPECT_EQ(Posmod(contexte_, {.individus = true}), Fin::Arret);
  EXPECT_NE(montre_.find("Il y a eu tentative de lire un fichier deja termine"), std::string::npos);
  EXPECT_EQ(Fichiers("ENQ.PRT"), avant);

  Ecrire("ENQ.MOD", "T\r\n\r\nSEX1 S Homme\r\n");
  avant = Fichiers("ENQ.PRT");
  std::string donnees;
  for (int i = 0; i < 30; ++i) donnees += "1234567890\n";
  Ecrire("ENQ.DAT", donnees);
  Ecrire("ENQ.POS", "T\n 30 \nAAA   199 &ACT&\nBBB   399 &ACT&\n");
  avant = Fichiers("ENQ.PRT");
  {
    const essai::DisquePlein disque(2048);  // enough for the report, not for the table of 200 modalities
    EXPECT_EQ(Posmod(contexte_, {.individus = true}), Fin::Arret);
  }
  EXPECT_NE(montre_.find(" notez le numero =  61 Disque plein"), std::string::npos) << montre_;
  EXPECT_EQ(Fichiers("ENQ.PRT"), avant);
}

}  // namespace
}  // namespace quelvar
