#include "text/tableau/tabmot.h"

#include <gtest/gtest.h>

#include "support/programme.h"
#include "text/lignedemot.h"
#include "text/tableau/comptage.h"
#include "text/tableau/sorties.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

using essai::Ligne;

TEST(LigneMarquee, GivesTheMarkThatTheChoiceAsksFor) {
  EXPECT_EQ(LigneMarquee("SEX   1 2", true), "SEX   1 2 &ACT&");
  EXPECT_EQ(LigneMarquee("SEX   1", true), "SEX   1   &ACT&");
  EXPECT_EQ(LigneMarquee("SEX   1 2 &SUP& $S$", true), "SEX   1 2 &ACT& $S$");
  EXPECT_EQ(LigneMarquee("SEX   1 2 &ACT&", false), "SEX   1 2 &SUP&");
  EXPECT_EQ(LigneMarquee("SEX   1 2", false), "SEX   1 2");
}

class RunTabMot : public essai::RunDeProgramme {};

TEST_F(RunTabMot, WhatDoesNotGoTogetherIsRefusedAndNothingChanges) {
  const std::string mot = Ligne("1", "a", "a");
  const std::string autre = Ligne("1", "b", "b");
  const struct {
    std::string dat;
    std::string pos;
    std::string_view dit;
  } cas[] = {
      {"112\r\n", "ENQ\r\n 1 \r\nSEX   1 2 &ACT&\r\n", "ne contient pas des mots"},
      {mot, "ENQ\r\n 1 \r\nSEX   2 2 &ACT&\r\n", "*** La question SEX (position 2) est au-delà des caractéristiques"_w},
      {mot + "1\r\n", "ENQ\r\n 2 \r\nSEX   1 2 &ACT&\r\n", "*** La ligne 2 de ENQ.DAT n'est pas celle d'un mot"},
      {"", "ENQ\r\n 0 \r\nSEX   1 2 &ACT&\r\n", "*** Arrêt du programme : le fichier ENQ.DAT est vide"_w},
      {mot + mot, "ENQ\r\n 1 \r\nSEX   1 2 &ACT&\r\n",
       "*** ENQ.POS annonce 1 mots (ligne 2) et ENQ.DAT en a davantage"},
      {mot + autre + mot, "ENQ\r\n 3 \r\nSEX   1 2 &ACT&\r\n", "*** Le mot a revient à la ligne 3 de ENQ.DAT"_w},
      {mot, "ENQ\r\n 1 \r\nSEX   1L3 &ACT&\r\n", "dont le code-max dépasse 99"_w},
      {mot, "ENQ\r\n 1 \r\nSEX   1 2 &ACT&\r\nSEX   1 9\r\n", "Le nom SEX est celui de 2 questions"},
      {mot, "ENQ\r\n 1 \r\nSEX   1 2\r\n", "*** Aucune question n'est marquée &ACT&"_w},
  };
  for (const auto& [dat, pos, dit] : cas) {
    Ecrire("ENQ.DAT", dat);
    Ecrire("ENQ.POS", pos);
    const auto avant = Fichiers("ENQ.PRT");
    EXPECT_EQ(TabMot(contexte_, {}), Fin::Arret);
    EXPECT_TRUE(Dit(dit)) << montre_;
    EXPECT_EQ(Fichiers("ENQ.PRT"), avant);
  }
}

TEST_F(RunTabMot, WordsInAnyOrderAreCountedAsLongAsTheirLinesStandTogether) {
  Ecrire("ENQ.DAT", Ligne("1", "b", "b") + Ligne("2", "b", "b") + Ligne("1", "a", "a"));
  Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2 &ACT&\r\n");
  EXPECT_EQ(TabMot(contexte_, {.frequenceMin = 2}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.BRT"), "   211b   b         \r\n");
  EXPECT_EQ(TabMot(contexte_, {.frequenceMin = 3}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.BRT"), "");
  EXPECT_EQ(boites_,
            std::vector<std::string>{std::string("Aucun mot n'atteint la fréquence minimum : le tableau est vide"_w)});
}

TEST_F(RunTabMot, AFrequencyBeyondItsFourColumnsIsToldAndShiftsNothing) {
  std::string dat;
  for (int i = 0; i < 10001; ++i) dat += Ligne("1", "de", "de");
  Ecrire("ENQ.DAT", dat);
  Ecrire("ENQ.POS", "ENQ\r\n 10001 \r\nSEX   1 2 &ACT&\r\n");
  Ecrire("ENQ.AGR", "ENQ\r\n   2 mots\r\n     mot\r\n");  // of the table that goes
  EXPECT_EQ(TabMot(contexte_, {}), Fin::Normale);
  EXPECT_FALSE(Existe("ENQ.AGR"));
  EXPECT_EQ(Lire("ENQ.BRT"), "999910001    0de  de        \r\n");
  EXPECT_TRUE(Dit("*** Attention : la fréquence du mot de est de 10001"_w));
}

}  // namespace
}  // namespace quelvar
