// The PEM of a table of two questions against values worked out by hand.
#include "regression/varint/varint.h"

#include <gtest/gtest.h>

#include <random>

#include "core/panne/erreur.h"
#include "core/programme/annulation.h"
#include "regression/varint/profils.h"
#include "support/erreur.h"
#include "support/programme.h"
#include "support/tableau.h"

namespace quelvar::regression {

namespace {

TEST(Pem, DeTablesConnues) {
  // All on one diagonal, whatever the order of the codes, and with codes that nobody has.
  EXPECT_DOUBLE_EQ(PemDeTable(essai::MatriceDe({{0, 7, 0}, {0, 0, 4}, {9, 0, 0}})), 100);
  EXPECT_DOUBLE_EQ(PemDeTable(essai::MatriceDe({{0, 0, 0}, {0, 0, 6}, {0, 5, 0}})), 100);
  // Margins 40, 60 and 50, 50: 30 where 20 are expected; the margins allow 40, so half of the room of 20 is taken.
  EXPECT_NEAR(PemDeTable(essai::MatriceDe({{30, 10}, {20, 40}})), 50, 1e-9);
  EXPECT_NEAR(PemDeTable(essai::MatriceDe({{10, 30}, {40, 20}})), 50, 1e-9);
  // No spread: no deviation is possible.
  EXPECT_EQ(PemDeTable(essai::MatriceDe({{12}})), 0);
  EXPECT_EQ(PemDeTable(essai::MatriceDe({{3, 4, 5}})), 0);
  EXPECT_EQ(essai::NumeroLeve([] { PemDeTable(Matrice(2, 3)); }), kDivisionParZero);
}

TEST(Pem, NeDependPasDesCodesVidesEtResteSousCent) {
  for (unsigned graine = 1; graine <= 30; ++graine) {
    const Matrice pleine = essai::MatriceAuHasard(4, 3, graine);
    Matrice trouee(6, 5);
    for (std::size_t i = 0; i < 4; ++i)
      for (std::size_t j = 0; j < 3; ++j) trouee(i + (i > 1 ? 2 : 1), j + (j > 0 ? 2 : 0)) = pleine(i, j);
    const double pem = PemDeTable(pleine);
    EXPECT_EQ(PemDeTable(trouee), pem);
    EXPECT_GE(pem, 0);
    EXPECT_LE(pem, 100);
  }
}

class RunVarint : public essai::RunDeProgramme {};

// A square table whose names are those of other columns is told; in the order of the .POS, and of few questions, it is
// what it says or what readers refuse.
TEST_F(RunVarint, NomsQuiNeSontPasCeuxDesColonnes) {
  Ecrire("ENQ.POS", "ENQ\n\nAAA   1 2\nBBB   2 2\nCCC   3 2\n");
  Ecrire("ENQ.DAT", "112\n221\n122\n212\n111\n");
  for (const auto& [questions, boites] : {std::pair{std::vector<std::string>{"AAA", "BBB", "CCC"}, 0U},
                                          {{"CCC", "BBB", "AAA"}, 1U},
                                          {{"BBB", "CCC"}, 1U},
                                          {{"BBB"}, 0U}}) {
    boites_.clear();
    OptionsVarint options;
    options.questions = questions;
    EXPECT_EQ(Varint(contexte_, options), Fin::Normale);
    EXPECT_EQ(boites_.size(), boites) << questions.front();
  }
}

TEST_F(RunVarint, LesIntitulesNeSontPasRemplacesSansUnMot) {
  Ecrire("ENQ.POS", "ENQ\n\nAAA   1 2\nBBB   2 2\n");
  Ecrire("ENQ.DAT", "11\n22\n12\n");
  OptionsVarint options;
  options.questions = {"AAA", "BBB"};
  const std::string modalites = "ENQ\r\n BRT=4 FMT=1\r\nAAA1   Homme\r\nAAA2\r\nBBB1\r\nBBB2\r\n**\r\n";
  Ecrire("ENQ.MOD", modalites);
  bouton_ = Reponse::Non;
  EXPECT_THROW(Varint(contexte_, options), Annulation);
  EXPECT_EQ(Lire("ENQ.MOD"), modalites);
  EXPECT_FALSE(Existe("ENQ.TRF"));
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Varint(contexte_, options), Fin::Normale);
  EXPECT_EQ(boites_.size(), 2U);
  EXPECT_EQ(Varint(contexte_, options), Fin::Normale);
  EXPECT_EQ(boites_.size(), 2U) << "its own file is made again unasked";
}

TEST_F(RunVarint, LEditionLongueEstDuNiveauDeux) {
  Ecrire("ENQ.POS", "ENQ\n\nAAA   1 2\nBBB   2 2\nCCC   3 2\n");
  Ecrire("ENQ.DAT", "112\n221\n122\n212\n111\n");
  OptionsVarint options;
  options.questions = {"BBB"};
  options.edition = EditionVarint::Longue;
  for (const int niveau : {1, 2}) {
    boites_.clear();
    contexte_.niveau = niveau;
    EXPECT_EQ(Varint(contexte_, options), Fin::Normale);
    EXPECT_EQ(boites_.size(), niveau == 1 ? 1U : 0U);
    EXPECT_EQ(Dit("Nom    PEM"), niveau == 2);
  }
}

}  // namespace

}  // namespace quelvar::regression
