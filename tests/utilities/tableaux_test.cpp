// Table utilities: the laws that tie a table to its inverse and to its individuals.
#include <gtest/gtest.h>

#include <random>

#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "support/programme.h"
#include "utilities/gendat.h"
#include "utilities/inversion.h"

namespace quelvar::utilities {
namespace {

class RunTableaux : public essai::RunDeProgramme {
 protected:
  // A table of that many rows and columns, its cells below 200, in `blocs` blocks.
  std::vector<int> EcrireTableau(int lignes, int colonnes, int blocs, unsigned graine) const {
    std::mt19937 hasard(graine);
    std::vector<int> cellules;
    std::string brt;
    for (int i = 0; i < lignes * blocs; ++i) {
      brt += CadreGauche("L" + std::to_string(i % lignes + 1), 4);
      for (int j = 0; j < colonnes; ++j) {
        cellules.push_back(static_cast<int>(hasard() % 3 == 0 ? 0 : hasard() % 200));
        brt += EntierDroit(cellules.back(), 4);
      }
      brt += "ligne " + std::to_string(i % lignes + 1) + "\r\n";
    }
    std::string mod =
        "AGE/SEX/VIL\r\n LIGN=" + std::to_string(lignes) + " COL=" + std::to_string(colonnes) + " FMT=4 \r\n";
    for (int j = 0; j < colonnes; ++j)
      mod += CadreGauche("C" + std::to_string(j + 1), 4) + "   colonne " + std::to_string(j + 1) + "\r\n";
    Ecrire("ENQ.BRT", brt);
    Ecrire("ENQ.MOD", mod);
    return cellules;
  }
};

TEST_F(RunTableaux, InvertedTwiceATableIsItselfUnderAThirdGeneric) {
  for (const auto& [lignes, colonnes] : {std::pair(1, 1), std::pair(3, 5), std::pair(12, 2)}) {
    EcrireTableau(lignes, colonnes, 1, 7);
    Contexte suivant = contexte_;
    for (const std::string nouveau : {"ENR", "ENS"}) {
      std::string recu;
      ASSERT_EQ(Inverser(suivant, {.nouveau = &recu, .remplacer = true}), Fin::Normale);
      ASSERT_EQ(recu, nouveau);
      suivant.generique = recu;
    }
    EXPECT_EQ(Lire("ENS.BRT"), Lire("ENQ.BRT"));
    const std::string mod = Lire("ENS.MOD");
    const std::string ancien = Lire("ENQ.MOD");
    const auto noms = [](const std::string& texte) { return texte.substr(texte.find("C1  ")); };
    EXPECT_EQ(noms(mod), noms(ancien));
  }
}

TEST_F(RunTableaux, TheIndividualsOfGendatCountBackToTheTable) {
  for (const auto& [lignes, colonnes, blocs] :
       {std::tuple(1, 1, 1), std::tuple(3, 4, 1), std::tuple(12, 9, 1), std::tuple(2, 101, 1), std::tuple(3, 2, 4)}) {
    const std::vector<int> cellules = EcrireTableau(lignes, colonnes, blocs, 11);
    ASSERT_EQ(Gendat(contexte_, {}), Fin::Normale);
    const FichierPos pos = LirePos(dossier_.Chemin() / "ENQ.POS");
    ASSERT_EQ(pos.questions.size(), blocs > 1 ? 3U : 2U);
    EXPECT_EQ(pos.questions[0].nom, "AGE");
    EXPECT_EQ(pos.questions[1].nom, "SEX");
    std::vector<Champ> champs;
    for (Question question : pos.questions) {
      champs.push_back(ChampDe(question));
      if (question.codeMax == 999) continue;
      EXPECT_LE(question.codeMax, 99);
    }
    std::vector<int> comptes(cellules.size(), 0);
    std::int64_t individus = 0;
    LecteurLignes lecteur(dossier_.Chemin() / "ENQ.DAT");
    for (std::string_view ligne; lecteur.Lire(ligne); ++individus) {
      const int i = LireChampInterieur(ligne.data(), champs[0]) - 1;
      const int j = LireChampInterieur(ligne.data(), champs[1]) - 1;
      const int k = blocs > 1 ? LireChampInterieur(ligne.data(), champs[2]) - 1 : 0;
      ++comptes.at(static_cast<std::size_t>((k * lignes + i) * colonnes + j));
    }
    EXPECT_EQ(comptes, cellules) << lignes << " x " << colonnes << " x " << blocs;
    EXPECT_EQ(pos.taille.individus, individus);
  }
}

// A table that can't be taken for what it says is refused, and its files stay.
TEST_F(RunTableaux, ATableWithoutAllItsNamesIsRefused) {
  const std::string noms = "A      un\r\nB      deux\r\n";
  const std::string trois = "L1    1  2  3\r\nL2    4  5  6\r\n";
  struct Essai {
    std::string parametres, brt;
    std::string_view inversion, gendat;  // what each says; empty when it runs
  };
  const std::vector<Essai> essais = {
      {" JMAX=3 FMT=3", trois, "annonce 3 colonnes et nomme 2 modalités"_w,
       "annonce 3 colonnes et nomme 2 modalités"_w},
      {" FMT=3", trois, "derrière la dernière des 2 colonnes nommées"_w,
       "derrière la dernière des 2 colonnes nommées"_w},
      {" COL=2 FMT=3", trois, "", ""},                                  // labels that are numbers
      {" FMT=3", "L1    1  2100\r\nL2    4  5200\r\n", "", ""},         // labels that are numbers
      {" LIGN=2 COL=4 FMT=3", "L1    1  2\r\nL2    4  5\r\n", "", ""},  // COL= counts the rows too
      {" FMT=3", "L1    1  2\r\n      4  5\r\n", "ligne 2, le nom \"    \" n'est pas possible", ""},
      {" FMT=3", "L1    1  2\r\n** x  4  5\r\n", "ligne 2, le nom \"** x\" n'est pas possible", ""},
  };
  bouton_ = Reponse::Oui;
  for (const Essai& essai : essais) {
    for (const char* reste : {"ENR.BRT", "ENR.MOD", "ENQ.DAT", "ENQ.POS"}) Effacer(reste);
    Ecrire("ENQ.BRT", essai.brt);
    Ecrire("ENQ.MOD", "ENQ\r\n" + essai.parametres + "\r\n" + noms);
    EXPECT_EQ(Inverser(contexte_, {}), essai.inversion.empty() ? Fin::Normale : Fin::Arret) << essai.brt;
    EXPECT_TRUE(Dit(essai.inversion)) << montre_;
    EXPECT_EQ(Existe("ENR.MOD"), essai.inversion.empty());
    EXPECT_EQ(Gendat(contexte_, {}), essai.gendat.empty() ? Fin::Normale : Fin::Arret) << essai.brt;
    EXPECT_TRUE(Dit(essai.gendat)) << montre_;
  }
}

TEST_F(RunTableaux, CellsThatAreNoNumbersAndShortRowsAreTold) {
  Ecrire("ENQ.MOD", "ENQ\r\n COL=2 FMT=3\r\nA      un\r\nB      a**b\r\n");
  Ecrire("ENQ.BRT", "L1    1abc\r\nL1  1,5   \r\nL3    4\r\n");
  const std::string_view mots =
      "*** Attention : cellules qui ne sont pas des nombres, lues jusqu'au premier signe de trop ou comptées pour 0 : "
      "2 "
      "la première à la ligne 1, colonne 2 (abc)"_w;
  const std::string_view courtes =
      "*** Attention : lignes plus courtes que leurs cellules, dont ce qui manque compte pour 0 : 1 la première est la "
      "ligne 3"_w;
  ASSERT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(Dit(mots) && Dit(courtes)) << montre_;
  EXPECT_EQ(Lire("ENQ.DAT"), "11\r\n21\r\n31\r\n31\r\n31\r\n31\r\n");
  ASSERT_EQ(Inverser(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(Dit(mots) && Dit(courtes) && Dit("lignes de même nom, que rien ne distinguera plus en colonnes : L1"_w));
  EXPECT_EQ(Inverser(contexte_, {.trg = true}), Fin::Arret);
  EXPECT_TRUE(Dit("finirait la liste des points"));
}

TEST_F(RunTableaux, WhatANewTableOrNewDataDoNotKeepIsTold) {
  const auto dit = [&](std::string_view texte) {
    return std::any_of(boites_.begin(), boites_.end(),
                       [&](const std::string& boite) { return boite.find(texte) != std::string::npos; });
  };
  Ecrire("ENQ.MOD", "AGE/AGE bis\r\n LIGN=4 LSUP=1 FMT=2\r\nA    S un\r\nB      deux\r\n");
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\nL3   5 6\r\nL4   7 8\r\n");
  ASSERT_EQ(Inverser(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(dit("1 colonnes devenues lignes, 1 lignes devenues colonnes"));
  ASSERT_EQ(Inverser(contexte_, {.trg = true}), Fin::Normale);
  EXPECT_TRUE(dit("les 3 premières des 4 lignes"_w));
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2  -3 4\r\nL3   5 6\r\nL4   7 8\r\n");
  EXPECT_EQ(Inverser(contexte_, {.trg = true}), Fin::Arret);
  EXPECT_TRUE(Dit("colonne 1, une cellule négative n'a pas de pourcentage"_w));
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\nL3   5 6\r\nL4   7 8\r\n");
  ASSERT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(dit("Deux questions portent le nom AGE"));
}

TEST_F(RunTableaux, IndividualsAreNotReplacedUnasked) {
  EcrireTableau(2, 2, 1, 3);
  Ecrire("ENQ.DAT", "enquete\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nAGE   1 9\r\n");
  const auto avant = Fichiers();
  bouton_ = Reponse::Non;
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Arret);
  EXPECT_EQ(Fichiers(), avant);
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO2"), avant.at("ENQ.POS"));
  EXPECT_EQ(Lire("ENQ.DA2"), avant.at("ENQ.DAT"));
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO3"), avant.at("ENQ.POS")) << "a second run keeps what the first one saved";
}

TEST_F(RunTableaux, ANewGenericThatExistsIsNotWrittenOver) {
  EcrireTableau(2, 2, 1, 3);
  Ecrire("ENR.DAT", "une autre enquete\r\n");
  std::string recu;
  EXPECT_EQ(Inverser(contexte_, {.nouveau = &recu}), Fin::Normale);
  EXPECT_EQ(recu, "ENS");  // the box proposes a free one
  saisie_ = "enr.pos";
  bouton_ = Reponse::Non;
  EXPECT_EQ(Inverser(contexte_, {}), Fin::Arret);
  saisie_ = "ENQ";
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Inverser(contexte_, {}), Fin::Arret);
  EXPECT_FALSE(Existe("ENR.MOD"));
}

TEST_F(RunTableaux, ADiskWithoutRoomLeavesNoHalfTable) {
  EcrireTableau(300, 300, 1, 3);
  const auto avant = Fichiers("ENQ.prt");
  const essai::DisquePlein disque(100000);
  EXPECT_EQ(Inverser(contexte_, {}), Fin::Arret);
  EXPECT_TRUE(Dit("ERREUR NUMERO = 61 "));
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Arret);
  EXPECT_EQ(Fichiers("ENQ.prt"), avant);
}

}  // namespace
}  // namespace quelvar::utilities
