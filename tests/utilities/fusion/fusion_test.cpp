// The fusion of two files: what holds of every pair, and what happens to the broken ones.
#include "utilities/fusion/fusion.h"

#include <gtest/gtest.h>

#include "support/programme.h"
#include "utilities/exportation.h"
#include "utilities/lignes.h"

namespace quelvar::utilities {
namespace {

using essai::Lignes;

class RunFusion : public essai::RunDeProgramme {
 protected:
  static OptionsFusion Fusion(TypeFusion type, bool pos = false) {
    OptionsFusion options;
    options.a = "A.DAT";
    options.b = "B.DAT";
    options.c = "C.DAT";
    options.type = type;
    options.pos = pos;
    return options;
  }
};

TEST_F(RunFusion, WhatIsJoinedSideBySideComesBackByZones) {
  const std::string a = Lignes(30, 7, 2);
  const std::string b = Lignes(30, 5, 3);
  Ecrire("A.DAT", a);
  Ecrire("B.DAT", b);
  ASSERT_EQ(Fusionner(contexte_, Fusion(TypeFusion::CoteACote)), Fin::Normale);
  ASSERT_EQ(Exporter(contexte_, {"C.DAT", "A2.DAT", "1", "7"}), Fin::Normale);
  ASSERT_EQ(Exporter(contexte_, {"C.DAT", "B2.DAT", "8", "12"}), Fin::Normale);
  EXPECT_EQ(Lire("A2.DAT"), a);
  EXPECT_EQ(Lire("B2.DAT"), b);
  ASSERT_EQ(Fusionner(contexte_, Fusion(TypeFusion::ALaSuite)), Fin::Normale);
  EXPECT_EQ(Lire("C.DAT"), a + b);
}

TEST_F(RunFusion, WhatALaunchLacksIsToldInOrder) {
  OptionsFusion fusion = Fusion(TypeFusion::Appareillement);
  const auto manque = [&] { return ManqueFusion(contexte_, fusion); };
  EXPECT_EQ(manque(), "Vous devez entrer la position de l'identificateur dans le fichier A");
  fusion.positionA = fusion.positionB = "1";
  EXPECT_EQ(manque(), std::string("Vous devez entrer la largeur de l'identificateur commune à A et B"_w));
  fusion.largeur = "2";
  EXPECT_EQ(manque(), "");
  fusion.c = "B.DAT";
  EXPECT_EQ(manque(), std::string("Le fichier résultant ne peut être un des deux fichiers d'entrée"_w));
  fusion.c = "A.TXT";  // whose .POS would be that of A
  EXPECT_EQ(manque(), "");
  fusion.pos = true;
  EXPECT_NE(manque(), "");
}

TEST_F(RunFusion, InputsAndFormerResultsAreWholeWhateverHappens) {
  Ecrire("A.DAT", Lignes(3000, 60, 4));
  Ecrire("B.DAT", Lignes(3000, 60, 5));
  Ecrire("A.POS", "A\r\n 3000 \r\nAGE   1 9\r\n");
  Ecrire("B.POS", "B\r\n 3000 \r\nSEX   1 9\r\n");
  Ecrire("C.DAT", "ancien");
  const auto avant = Fichiers("ENQ.prt");
  {
    const essai::DisquePlein disque(200000);
    EXPECT_EQ(Fusionner(contexte_, Fusion(TypeFusion::CoteACote, true)), Fin::Arret);
    EXPECT_TRUE(Dit("ERREUR NUMERO = 61 "));
  }
  EXPECT_EQ(Fichiers("ENQ.prt"), avant);
  Ecrire("B.POS", "B\r\n 3000 \r\nSEX9990 9\r\n");  // moves beyond the four columns of a position
  EXPECT_EQ(Fusionner(contexte_, Fusion(TypeFusion::CoteACote, true)), Fin::Arret);
  EXPECT_TRUE(Dit("ERREUR NUMERO = 6 "));
  EXPECT_EQ(Lire("C.DAT"), "ancien");
  EXPECT_FALSE(Existe("C.POS"));
}

TEST_F(RunFusion, AFileIsMergedWithItselfOnlyWhenTheUserSaysSo) {
  Ecrire("A.DAT", "01\r\n");
  OptionsFusion options = Fusion(TypeFusion::ALaSuite);
  options.b = "./a.dat";
  bouton_ = Reponse::Non;
  EXPECT_EQ(Fusionner(contexte_, options), Fin::Arret);
  EXPECT_FALSE(Existe("C.DAT"));
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_TRUE(boites_[0].find("A et B sont un seul et m") != std::string::npos);
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Fusionner(contexte_, options), Fin::Normale);
  EXPECT_EQ(Lire("C.DAT"), "01\r\n01\r\n");
  EXPECT_EQ(Lire("A.DAT"), "01\r\n");
}

// The .POS of the result holds the lines of A and B; what they can't mean together is told in a box.
TEST_F(RunFusion, WhatThePosOfAFusionCannotMeanIsTold) {
  Ecrire("A.DAT", "011\r\n");
  Ecrire("B.DAT", "012\r\n");
  const std::string a = "A\r\n 1 \r\nIDE   199\r\nSEX   3 2\r\n";
  struct Essai {
    TypeFusion type;
    std::string a, b;
    std::string_view boite;  // empty for none
  };
  const std::vector<Essai> essais = {
      {TypeFusion::CoteACote, a, "B\r\n 1 \r\nIDE   199\r\nAGE   3 2\r\n",
       "Questions de même nom dans A et dans B : 1 (IDE). C.POS les porte deux fois"_w},
      {TypeFusion::CoteACote, a, "B\r\n 1 \r\nAGE   3 2\r\n", ""},
      {TypeFusion::ALaSuite, a, "B\r\n 1 \r\nIDE   199\r\nSEX   3 3\r\n",
       "Les questions de B ne sont pas celles de A, à partir de la question 2"_w},
      {TypeFusion::ALaSuite, a, a + "** le reste\r\n", ""},
      {TypeFusion::ALaSuite, a, "B\r\n 1 \r\n", "C.POS n'a pas été fait : A.POS ou B.POS manque"_w},
  };
  for (const Essai& essai : essais) {
    Effacer("C.POS");
    Ecrire("A.POS", essai.a);
    Ecrire("B.POS", essai.b);
    boites_.clear();
    ASSERT_EQ(Fusionner(contexte_, Fusion(essai.type, true)), Fin::Normale);
    ASSERT_EQ(boites_.size(), essai.boite.empty() ? 0U : 1U);
    EXPECT_TRUE(boites_.empty() || boites_[0].find(essai.boite) != std::string::npos) << boites_[0];
  }
  Ecrire("C.POS", "le mien");
  bouton_ = Reponse::Non;
  EXPECT_EQ(Fusionner(contexte_, Fusion(TypeFusion::ALaSuite, true)), Fin::Arret);
  EXPECT_EQ(Lire("C.POS"), "le mien");
}

TEST_F(RunFusion, APosThatIsNotThatOfTheResultIsTold) {
  Ecrire("B.DAT", "01\r\n03\r\n");
  struct Cas {
    TypeFusion type;
    std::string_view a;
    bool pos;
  };
  for (const Cas& cas : {Cas{TypeFusion::ALaSuite, "01\r\n", false}, Cas{TypeFusion::CoteACote, "01\r\n02\r\n", true},
                         Cas{TypeFusion::Appareillement, "01\r\n04\r\n", false}}) {
    Ecrire("A.DAT", std::string(cas.a));
    Ecrire("C.POS", "ancien\r\n");
    boites_.clear();
    OptionsFusion options = Fusion(cas.type, cas.pos);
    options.positionA = options.positionB = "1";
    options.largeur = "2";
    Fusionner(contexte_, options);
    EXPECT_EQ(Lire("C.POS"), "ancien\r\n");
    EXPECT_EQ(
        std::count(
            boites_.begin(), boites_.end(),
            Joindre({"Le fichier C.POS était là et reste : il n'est pas celui de C.DAT qui vient d'être fait"_w})),
        1);
    Effacer("C.POS");
    boites_.clear();
    Fusionner(contexte_, options);
    for (const std::string& boite : boites_) EXPECT_EQ(boite.find("était là"_w), std::string::npos);
  }
}

TEST_F(RunFusion, AMatchingThatStopsSaysAtWhichLine) {
  OptionsFusion options = Fusion(TypeFusion::Appareillement);
  options.positionA = options.positionB = "1";
  options.largeur = "2";
  Ecrire("A.DAT", "01a\r\n02a\r\n03a\r\n");
  for (const auto& [b, boite] :
       {std::pair("01b\r\n03b\r\n02b\r\n",
                  "Ligne 3 de B, numéro 02 : aucune ligne de A n'a ce numéro à partir de la ligne 4"_w),
        std::pair("00b\r\n", "Ligne 1 de B, numéro 00 : aucune ligne de A n'a ce numéro à partir de la ligne 1"_w),
        std::pair("01b\r\n", "Première ligne de A derrière la fin de B : 2, numéro 02"_w)}) {
    Ecrire("B.DAT", b);
    boites_.clear();
    EXPECT_EQ(Fusionner(contexte_, options), Fin::Arret);
    ASSERT_EQ(boites_.size(), 1U);
    EXPECT_NE(boites_[0].find(boite), std::string::npos) << boites_[0];
  }
}

TEST_F(RunFusion, IdentifiersBeyondEveryLineAreNotAllEqual) {
  Ecrire("A.DAT", "01a\r\n");
  Ecrire("B.DAT", "02b\r\n");
  for (const TypeFusion type : {TypeFusion::Appareillement, TypeFusion::CoteACote}) {
    OptionsFusion options = Fusion(type);
    options.verifier = true;
    options.positionA = options.positionB = "90";
    options.largeur = "2";
    EXPECT_EQ(Fusionner(contexte_, options), Fin::Arret);
    EXPECT_TRUE(Dit("ERREUR NUMERO = 5 "));
  }
}

TEST_F(RunFusion, AVerificationGivenUpLeavesNoTrace) {
  Ecrire("A.DAT", "01\r\n");
  Ecrire("B.DAT", "01\r\n");
  OptionsFusion options = Fusion(TypeFusion::CoteACote);
  options.verifier = true;
  const auto avant = Fichiers();
  saisie_ = "";
  EXPECT_EQ(Fusionner(contexte_, options), Fin::Arret);
  EXPECT_EQ(Fichiers(), avant);
  EXPECT_EQ(montre_, "");
}

}  // namespace
}  // namespace quelvar::utilities
