#include "modalities/regroupement/modifburt.h"

#include <gtest/gtest.h>

#include "support/programme.h"

namespace quelvar {

using namespace quelvar::modalities;

namespace {

TEST(NomCourtDeGroupe, IsTheFirstFourCharactersOrZeros) {
  for (const auto& [nom, court] : {std::pair("", "0000"), std::pair("Ag", "Ag00"), std::pair("Jeunes", "Jeun")})
    EXPECT_EQ(NomCourtDeGroupe(nom), court);
}

class RunModifBurt : public essai::RunDeProgramme {
 protected:
  void EcrireTable() const {
    Ecrire("ENQ.MOD", "ENQ\r\n BRT=1 LIGN=5 LSUP=2 COL=3 FMT=1 \r\nAGE1\r\nAGE2\r\nSEX1\r\n");
    Ecrire("ENQ.BRT", "AGE1101\r\nAGE2011\r\nSEX1112\r\n1   101Un\r\n2   011Deux\r\n");
    Ecrire("ENQ.POS", "ENQ\r\n 2 \r\nAGE   1 2\r\n");
  }
};

TEST_F(RunModifBurt, IndividualsStayBehindTheGroup) {
  EcrireTable();
  std::string nouveau;
  OptionsModifBurt options;
  options.colonnes = {"AGE1", "AGE2"};
  options.nomColonne = "Tous";
  options.nouveau = &nouveau;
  ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale) << montre_;
  EXPECT_EQ(nouveau, "ENR");
  EXPECT_EQ(Lire("ENR.BRT"), "SEX122\r\nTous22\r\n1   11Un\r\n2   11Deux\r\n");
  EXPECT_EQ(Lire("ENR.MOD"), "ENR\r\n BRT=1 LIGN=4 LSUP=2 COL=2 FMT=1 \r\nSEX1\r\nTous   Tous\r\n");
  EXPECT_EQ(Lire("ENR.POS"), Lire("ENQ.POS"));
  EXPECT_NE(AnnonceDuRegroupement(options).find("AGE1, AGE2"), std::string::npos);
}

// The frequencies that name the rows of a lexical table stand to the right of their columns.
TEST_F(RunModifBurt, ARowIsFoundByItsNameWithoutTheBlanksAroundIt) {
  const std::string mod = "ENQ\r\nIMAX=3 JMAX=2 ISUP=0 FMT=4\r\nAAA1\r\nAAA2\r\n";
  const struct {
    std::vector<std::string> lignes;
    std::string_view brt, refus;  // what is left of the table, or why nothing is done
  } cas[] = {
      {{"12", "ab"}, "  7    3   4beta\r\nxx00   6   8\r\n", ""},
      {{"  12", " 7"}, "ab     3   4gamma\r\nxx00   6   8\r\n", ""},
      {{"ab", "cd", "ab"}, "", "La ligne cd n'est pas dans le tableau"},
      {{"12", "ab", "12"}, "", "La ligne 12 n'est pas dans le tableau"},
  };
  for (const auto& c : cas) {
    for (const char* reste : {"ENR.PRT", "ENR.MOD", "ENR.BRT", "Qvr2.ini"}) Effacer(reste);
    Ecrire("ENQ.MOD", mod);
    Ecrire("ENQ.BRT", "  12   3   4alpha\r\n  7    3   4beta\r\nab     3   4gamma\r\n");
    OptionsModifBurt options;
    options.lignes = c.lignes;
    options.nomLigne = "xx";
    EXPECT_EQ(ModifierBurt(contexte_, options), c.refus.empty() ? Fin::Normale : Fin::Arret) << montre_;
    EXPECT_TRUE(Dit(c.refus)) << montre_;
    EXPECT_EQ(Existe("ENR.BRT") ? Lire("ENR.BRT") : "", c.brt);
  }
}

// A group under the name of an element that stays could not be told from it any more.
TEST_F(RunModifBurt, AGroupDoesNotTakeTheNameOfAnotherElement) {
  struct Essai {
    std::vector<std::string> colonnes, lignes;
    std::string nomColonne, nomLigne;
    std::string_view refus;  // empty when it runs
  };
  const auto lancer = [&](const std::vector<Essai>& essais) {
    for (const Essai& essai : essais) {
      for (const char* reste : {"ENR.PRT", "ENR.MOD", "ENR.BRT", "ENR.POS", "Qvr2.ini"}) Effacer(reste);
      OptionsModifBurt options;
      options.colonnes = essai.colonnes;
      options.lignes = essai.lignes;
      options.nomColonne = essai.nomColonne;
      options.nomLigne = essai.nomLigne;
      EXPECT_EQ(ModifierBurt(contexte_, options), essai.refus.empty() ? Fin::Normale : Fin::Arret) << montre_;
      EXPECT_TRUE(Dit(essai.refus)) << montre_;
      EXPECT_EQ(Existe("ENR.MOD"), essai.refus.empty());
    }
  };
  EcrireTable();
  lancer({{{"AGE1", "AGE2"},
           {},
           "SEX1 et autre",
           "",
           "*** Le nom court SEX1 du regroupement est déjà celui d'une colonne"_w},
          {{"AGE1"}, {"AGE2"}, "SEX1", "", "SEX1 du regroupement est déjà celui d'une colonne du tableau"_w},
          {{"AGE1", "AGE2"}, {}, "AGE2", "", ""},  // it goes into the group
          {{"AGE1", "AGE2"}, {}, "    vieux", "", "finirait la liste des modalités"_w},
          {{"AGE1", "AGE2"}, {}, "A**", "", "finirait la liste des modalités"_w},
          {{}, {}, "SEX1", "", ""}});
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 COL=2 FMT=2 \r\nA\r\nAB00\r\n");
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\nX000 5 6\r\n");
  lancer({{{}, {"L1", "L2"}, "", "X", "X000 du regroupement est déjà celui d'une ligne du tableau"_w},
          {{}, {"L1", "L2"}, "", "AB", ""},  // a column may bear it
          {{"A"}, {"L1", "L2"}, "AB", "L1", "AB00 du regroupement est déjà celui d'une colonne"_w}});
}

TEST_F(RunModifBurt, CellsThatAreNotAddedUpAsTheyStandAreTold) {
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 COL=2 FMT=3 \r\nA\r\nB\r\n");
  Ecrire("ENQ.BRT", "L1    1  2\r\nL2  1.5abc\r\nL3   -4\r\n");
  OptionsModifBurt options;
  options.lignes = {"L1", "L2", "L3"};
  options.nomLigne = "Tout";
  ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale);
  EXPECT_EQ(Lire("ENR.BRT"), "Tout -2  2\r\n");
  ASSERT_FALSE(boites_.empty());
  EXPECT_NE(boites_.back().find(std::string(" : 4, la première ligne 2, colonne 1 (1.5)"_w)), std::string::npos);
  for (const char* reste : {"ENR.BRT", "ENR.MOD"}) Effacer(reste);
  boites_.clear();
  options.lignes = {"L1"};
  ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale);
  EXPECT_TRUE(boites_.empty()) << "cells that are copied stay as they are";
}

TEST_F(RunModifBurt, RowsBeyondThoseAnnouncedAndANameThatIsCutAreTold) {
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=2 COL=2 FMT=2 \r\nA\r\nB\r\n");
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\n");
  OptionsModifBurt options;
  options.colonnes = {"A", "B"};
  options.nomColonne = "abcdefghijklmnopqrstuvwxy";
  ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale) << montre_;
  EXPECT_TRUE(boites_.empty());
  for (const char* reste : {"ENR.BRT", "ENR.MOD", "ENR.PRT"}) Effacer(reste);
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\nL3   5 6\r\n");
  options.nomColonne += "zabc";
  ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale) << montre_;
  ASSERT_EQ(boites_.size(), 2U);
  EXPECT_NE(boites_[0].find(std::string("coupé à 25 caractères : abcdefghijklmnopqrstuvwxyzabc devient "
                                        "abcdefghijklmnopqrstuvwxy"_w)),
            std::string::npos);
  EXPECT_NE(boites_[1].find("ENQ.BRT a 3 lignes au lieu de 2 (LIGN= de ENQ.MOD)"), std::string::npos);
}

TEST_F(RunModifBurt, SupplementaryElementsThatBecomeActiveAreTold) {
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 LSUP=2 COL=3 FMT=2 \r\nA   S  a\r\nB   S  b\r\nC      c\r\n");
  Ecrire("ENQ.BRT", "L1   1 2 3\r\nL2   3 4 5\r\nL3   5 6 7\r\n");
  struct Cas {
    std::vector<std::string> colonnes, lignes;
    std::string_view annonce;  // empty when nothing changes
  };
  for (const Cas& cas :
       {Cas{{"C"}, {}, ""}, Cas{{}, {"L2", "L3"}, ""}, Cas{{}, {"L1", "L3"}, " : 0 colonnes, 1 lignes"},
        Cas{{"A", "B"}, {"L1", "L2", "L3"}, " : 2 colonnes, 2 lignes"}}) {
    for (const char* reste : {"ENR.BRT", "ENR.MOD", "ENR.PRT"}) Effacer(reste);
    boites_.clear();
    OptionsModifBurt options;
    options.colonnes = cas.colonnes;
    options.lignes = cas.lignes;
    options.nomColonne = "Gcol";
    options.nomLigne = "Glig";
    ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale) << montre_;
    ASSERT_EQ(boites_.size(), cas.annonce.empty() ? 0U : 1U);
    EXPECT_TRUE(boites_.empty() || boites_[0].find(cas.annonce) != std::string::npos) << boites_[0];
  }
}

TEST_F(RunModifBurt, ASlipCostsNoGenericAndWholeTablesAreNotGrouped) {
  EcrireTable();
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=3 FMT=1 \r\nAGE1\r\nAGE2\r\nSEX1\r\n");
  Ecrire("ENQ.BRT", "AGE1101\r\nAGE2011\r\nSEX1112\r\n");
  OptionsModifBurt options;
  options.nomColonne = "Tous";
  options.nomLigne = "autre";
  for (const std::vector<std::string>& marques : {std::vector<std::string>{"AGE1", "AZ"}, {"AGE1", "AGE2", "SEX1"}}) {
    options.colonnes = marques;
    EXPECT_EQ(ModifierBurt(contexte_, options), Fin::Arret);
  }
  EXPECT_TRUE(Dit("il n'en resterait qu'une"));
  std::string nouveau;
  options.colonnes = {"AGE1", "AGE2"};
  options.nouveau = &nouveau;
  ASSERT_EQ(ModifierBurt(contexte_, options), Fin::Normale);
  EXPECT_EQ(nouveau, "ENR");
  EXPECT_FALSE(Dit("ses fichiers sont rempl")) << "of the stopped run there was its report alone";
  ASSERT_FALSE(boites_.empty());
  EXPECT_NE(boites_.back().find("autre"), std::string::npos) << "a name that is not taken is told";
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=2 COL=2 FMT=2 \r\nA\r\nB\r\n");
  Ecrire("ENQ.BRT", "R1   1 2\r\nR1   3 4\r\n");
  options.colonnes.clear();
  options.lignes = {"R1"};
  EXPECT_EQ(ModifierBurt(contexte_, options), Fin::Arret);
  EXPECT_TRUE(Dit("le nom R1 est celui de 2 lignes"));
}

TEST_F(RunModifBurt, AnUnknownMarkOrAFullDiskMovesNothing) {
  EcrireTable();
  const auto avant = Fichiers();
  OptionsModifBurt options;
  options.colonnes = {"ZZZ1"};
  EXPECT_EQ(ModifierBurt(contexte_, options), Fin::Arret);
  Effacer("ENR.PRT");
  EXPECT_EQ(Fichiers(), avant);
  std::string lignes;
  for (int i = 0; i < 4000; ++i) lignes += "R   " + std::string(60, '1') + "\r\n";
  Ecrire("ENQ.BRT", lignes);
  options.colonnes.clear();
  Ecrire("ENQ.MOD", "ENQ\r\n LIGN=4000 FMT=60\r\nCOL1\r\n");
  const essai::DisquePlein disque(100000);
  EXPECT_EQ(ModifierBurt(contexte_, options), Fin::Arret);
  EXPECT_TRUE(Dit(" 61 "));
  EXPECT_FALSE(Existe("ENR.MOD"));
  EXPECT_FALSE(Existe("qvr2.ini"));
}

}  // namespace
}  // namespace quelvar
