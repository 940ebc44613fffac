// Export and listing: what holds of every file, and what happens to the broken ones.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/programme.h"
#include "utilities/caracteres.h"
#include "utilities/exportation.h"
#include "utilities/fusion/fusion.h"
#include "utilities/lignes.h"
#include "utilities/tri/trifichier.h"

namespace quelvar::utilities {
namespace {

using essai::Lignes;

class RunUtilitaires : public essai::RunDeProgramme {};

TEST_F(RunUtilitaires, AZoneAndItsComplementHoldEveryByte) {
  const std::string texte = Lignes(40, 9, 1);
  Ecrire("A.TXT", texte);
  for (int debut = 1; debut <= 9; ++debut)
    for (int fin = debut - 1; fin <= 9; ++fin) {
      OptionsExportation options{"A.TXT", "ZONE.TXT", std::to_string(debut), std::to_string(fin)};
      ASSERT_EQ(Exporter(contexte_, options), Fin::Normale);
      options.c = "RESTE.TXT";
      options.complementaire = true;
      ASSERT_EQ(Exporter(contexte_, options), Fin::Normale);
      const std::string zone = Lire("ZONE.TXT");
      const std::string reste = Lire("RESTE.TXT");
      const auto largeur = static_cast<std::size_t>(fin - debut + 1);
      std::string refait;
      for (std::size_t i = 0; i < 40; ++i) {
        std::string ligne = reste.substr(i * (11 - largeur), 9 - largeur);
        ligne.insert(static_cast<std::size_t>(debut - 1), zone.substr(i * (largeur + 2), largeur));
        refait += ligne + "\r\n";
      }
      EXPECT_EQ(refait, texte) << debut << "-" << fin;
    }
}

TEST_F(RunUtilitaires, TheListingGivesEveryByteBack) {
  std::string octets;
  for (int n = 0; n < 700; ++n) octets += static_cast<char>(n * 37);
  for (const std::size_t taille : {0U, 1U, 14U, 15U, 700U}) {
    Ecrire("A.TXT", octets.substr(0, taille));
    ASSERT_EQ(ListerCaracteres(contexte_, {"A.TXT"}), Fin::Normale);
    std::string rapport = Lire("ENQ.prt");
    rapport = rapport.substr(rapport.find("analyser\r\n") + 10);
    std::string lus;
    for (std::size_t reste = taille; reste > 0;) {  // an empty line, the codes, the characters
      const std::size_t n = std::min<std::size_t>(reste, 14);
      for (std::size_t i = 0; i < n; ++i) lus += static_cast<char>(std::stoi(rapport.substr(2 + 4 * i, 4)));
      rapport = rapport.substr(2 + 2 * (4 * n + 2));
      reste -= n;
    }
    EXPECT_EQ(lus, octets.substr(0, taille));
    EXPECT_EQ(rapport, "Fin normale du programme\r\n");
  }
}

TEST_F(RunUtilitaires, WhatALaunchLacksIsToldInOrder) {
  OptionsExportation exportation;
  const auto manque = [&] { return ManqueExportation(contexte_, exportation); };
  EXPECT_EQ(manque(), "Vous devez entrer le nom du fichier A d'origine");
  exportation.a = "A.TXT";
  EXPECT_EQ(manque(), std::string("Vous devez entrer le nom du fichier C résultant de l'exportation"_w));
  exportation.c = "./a.txt";
  EXPECT_EQ(manque(),
            std::string("*** Attention : l'exportation ne peut écraser le fichier d'origine. Option impossible"_w));
  exportation.c = "C.TXT";
  EXPECT_EQ(manque(), "Vous devez entrer la position initiale de la zone d'exportation");
  exportation.debut = "1";
  EXPECT_EQ(manque(), "Vous devez entrer la position finale de la zone d'exportation");
  exportation.fin = "2";
  EXPECT_EQ(manque(), "");
  exportation.a = "enq.PRT";  // where the report goes
  EXPECT_NE(manque(), "");
}

TEST_F(RunUtilitaires, AZoneThatIsNoneLeavesTheFormerResult) {
  Ecrire("A.TXT", "abcd\r\n");
  Ecrire("C.TXT", "ancien");
  EXPECT_EQ(Exporter(contexte_, {"A.TXT", "C.TXT", "0", "4"}), Fin::Arret);
  EXPECT_TRUE(Dit("ERREUR NUMERO = 5 "));
  EXPECT_EQ(Lire("C.TXT"), "ancien");
}

TEST_F(RunUtilitaires, AZoneBeyondEveryLineIsSaidHoweverFar) {
  Ecrire("A.TXT", "abc\r\n");
  for (const std::string fin : {"4", "40000", "99999999999999999999", "1e300"}) {
    EXPECT_EQ(Exporter(contexte_, {"A.TXT", "C.TXT", "2", fin}), Fin::Arret);
    EXPECT_NE(montre_.find("dépasse la longueur de l'enregistrement"_w), std::string::npos) << fin << montre_;
  }
}

// A result that takes the place of the data, questions or labels of the data set leaves them under the name of a copy.
TEST_F(RunUtilitaires, WhatNobodyCanMakeAgainIsKept) {
  Ecrire("A.TXT", "12\r\n34\r\n");
  Ecrire("B.TXT", "56\r\n78\r\n");
  Ecrire("ENQ.POS", "questions");
  Ecrire("ENQ.MOD", "intitules");
  Ecrire("ENQ.DAT", "1\r\n");
  Ecrire("ENQ.TRI", "refait");
  EXPECT_EQ(Exporter(contexte_, {"A.TXT", "enq.pos", "1", "1"}), Fin::Normale);
  EXPECT_EQ(TriDesUtilitaires(contexte_, {"A.TXT", "ENQ.MOD", "1", "1"}), Fin::Normale);
  OptionsFusion fusion;
  fusion.a = "A.TXT";
  fusion.b = "B.TXT";
  fusion.c = "ENQ.DAT";
  fusion.type = TypeFusion::ALaSuite;
  EXPECT_EQ(Fusionner(contexte_, fusion), Fin::Normale);
  EXPECT_EQ(Exporter(contexte_, {"A.TXT", "ENQ.TRI", "1", "1"}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO2") + Lire("ENQ.MO2") + Lire("ENQ.DA2"), "questionsintitules1\r\n");
  EXPECT_EQ(std::ranges::count_if(boites_, [](std::string_view b) { return b.ends_with("2"); }), 3)
      << testing::PrintToString(boites_);
  EXPECT_EQ(TriDesUtilitaires(contexte_, {"ENQ.DAT", "ENQ.DAT", "1", "1", SensDeTri::Decroissant}), Fin::Normale);
  EXPECT_FALSE(Existe("ENQ.DA3")) << "the order of a file that is sorted in its place is what the user gives up";
}

}  // namespace
}  // namespace quelvar::utilities
