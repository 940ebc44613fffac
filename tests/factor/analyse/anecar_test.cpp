#include "factor/analyse/anecar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <numeric>
#include <random>

#include "factor/analyse/fichiers.h"
#include "factor/analyse/supplementaires.h"
#include "factor/analyse/tri.h"
#include "support/programme.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

class RunAnecar : public essai::RunDeProgramme {
 protected:
  void Table(std::string_view mod, std::string_view brt) {
    Ecrire("ENQ.MOD", mod);
    Ecrire("ENQ.BRT", brt);
  }
  // A table of random counts of two digits, with that many rows and columns, and what else its line 2 tells.
  void TableAuHasard(int lignes, int colonnes, const std::string& parametres = "") {
    std::mt19937 hasard(3);
    std::string mod = "T\n LIGN=" + std::to_string(lignes) + " FMT=2" + parametres + "\n";
    std::string brt;
    for (int j = 0; j < colonnes; ++j) mod += "C" + std::to_string(j + 1) + "\n";
    for (int i = 0; i < lignes; ++i) {
      brt += "L   ";
      for (int j = 0; j < colonnes; ++j) brt += std::to_string(10 + hasard() % 90);
      brt += '\n';
    }
    Table(mod, brt);
  }
};

TEST_F(RunAnecar, TheLastAnalysisIsThatOfTheYoungerReport) {
  constexpr int kAbsent = -1;
  const struct {
    int afc, acp;  // seconds of the two reports
    const char* derniere;
  } cas[] = {{kAbsent, kAbsent, ".AFC"},
             {1, kAbsent, ".AFC"},
             {kAbsent, 1, ".ACP"},
             {1, 2, ".ACP"},
             {2, 1, ".AFC"},
             {1, 1, ".AFC"}};
  const auto poser = [&](const std::string& nom, int seconde) {
    Effacer(nom);
    if (seconde == kAbsent) return;
    Ecrire(nom, "rapport");
    std::filesystem::last_write_time(dossier_.Chemin() / nom,
                                     std::filesystem::file_time_type(std::chrono::seconds(seconde)));
  };
  for (const auto& c : cas) {
    poser("enq.afc", c.afc);
    poser("ENQ.ACP", c.acp);
    EXPECT_EQ(DerniereAnalyse(contexte_), c.derniere) << c.afc << ' ' << c.acp;
  }
  // What has no date, as a link that leads to itself, is no analysis.
  Effacer("ENQ.ACP");
  std::filesystem::create_symlink("ENQ.ACP", dossier_.Chemin() / "ENQ.ACP");
  poser("enq.afc", 1);
  EXPECT_EQ(DerniereAnalyse(contexte_), ".AFC");
}

TEST_F(RunAnecar, NumberOfFactorsIsBoundByTheActiveElements) {
  const struct {
    int lignes, colonnes, demandes, attendus;
  } cas[] = {{2, 5, 9, 1}, {6, 3, 3, 2}, {6, 6, 0, 3}, {6, 6, 4, 4}, {1, 4, 3, 0}};
  for (const auto& c : cas) {
    TableAuHasard(c.lignes, c.colonnes);
    OptionsAnecar options;
    options.facteurs = c.demandes;
    ASSERT_EQ(Anecar(contexte_, options), Fin::Normale) << montre_;
    EXPECT_NE(montre_.find("extraire est de  " + std::to_string(c.attendus) + "\r\n"), std::string::npos) << montre_;
  }
}

TEST_F(RunAnecar, InversionsEndWithTheFourthFactor) {
  TableAuHasard(7, 6);
  const auto fichiers = [&](int facteurs, InversionsDeFacteurs inversions) {
    OptionsAnecar options;
    options.facteurs = facteurs;
    options.inversions = inversions;
    EXPECT_EQ(Anecar(contexte_, options), Fin::Normale);
    return Lire("ENQ.FAJ") + Lire("ENQ.FJ2") + Lire("ENQ.FAI") + Lire("ENQ.FI2");
  };
  const std::string droits = fichiers(3, {});
  const std::string inverses = fichiers(3, {true, false, true});
  EXPECT_NE(droits, inverses);
  EXPECT_EQ(droits.size(), inverses.size());
  EXPECT_EQ(fichiers(4, {}), fichiers(4, {true, true, true}));
}

TEST_F(RunAnecar, AStoppedRunLeavesTheFilesOfTheRunBefore) {
  TableAuHasard(5, 4);
  ASSERT_EQ(Anecar(contexte_, {}), Fin::Normale);
  const std::string avant = Lire("ENQ.FAJ");
  Table("T\n LIGN=2 LSUP=1 FMT=5\nC1\nC2\n", "L1  9e3079e307\nL2  9e3079e307\n");
  EXPECT_EQ(Anecar(contexte_, {}), Fin::Arret);
  EXPECT_NE(montre_.find(" notez le numero =  6 "), std::string::npos) << montre_;
  EXPECT_EQ(Lire("ENQ.FAJ"), avant);
  EXPECT_FALSE(Existe("$$AEI.TIS"));
}

TEST_F(RunAnecar, LogicalCodingNeedsItsFileAndAnalysesTheIndividuals) {
  Table("T\n BRT=1 LIGN=12 LSUP=8 COL=4 FMT=1\nA1\nA2\nB1\nB2\n",
        "A1  4031\nA2  0413\nB1  3140\nB2  1304\n"
        "1   1010\n2   1010\n3   1010\n4   1001\n5   0110\n6   0101\n7   0101\n8   0101\n");
  OptionsAnecar options;
  options.codageLogique = true;
  options.facteurs = 2;
  EXPECT_EQ(Anecar(contexte_, options), Fin::Arret);
  EXPECT_EQ(boites_.back(), "Le fichier en codage logique n'existe pas, vérifiez et relancez"_w);

  // Two questions with phi = 0.5: the eigenvalues of the indicator table are (1 + phi)/2 and (1 - phi)/2.
  Ecrire("ENQ.CDG", "");
  EXPECT_EQ(Anecar(contexte_, options), Fin::Normale);
  EXPECT_NE(montre_.find("actives est de  8 "), std::string::npos);
  EXPECT_NE(montre_.find("Valeur propre =  0.750000\r\nPourcentage du total = 75.0"), std::string::npos);
  EXPECT_NE(montre_.find("Valeur propre =  0.250000\r\nPourcentage du total = 25.0"), std::string::npos);
  EXPECT_EQ(montre_.find("Lignes du tableau\r\n"), std::string::npos) << "individuals are no rows of a Burt table";
  const std::string individus = Lire("ENQ.FAI");
  EXPECT_EQ(std::count(individus.begin(), individus.end(), '\n'), 8);
  EXPECT_EQ(individus.substr(0, 21), "1     125   1000  167");  // 1000 * 1/8 / 0.75
}

TEST_F(RunAnecar, EditionFollowsTheSizeAtLevelOne) {
  std::string mod = "T\n BRT=50 FMT=2\n";
  std::string brt;
  for (int i = 0; i < 50; ++i) {
    mod += std::to_string(100 + i) + "1" + (i == 1 ? " S\n" : "\n");
    brt += std::to_string(100 + i) + "1";
    for (int j = 0; j < 50; ++j) brt += i == j ? "40" : (i + j) % 3 == 0 ? "20" : "10";
    brt += '\n';
  }
  Table(mod, brt);
  ASSERT_EQ(Anecar(contexte_, {}), Fin::Normale) << montre_;
  const std::string afc = Lire("ENQ.AFC");
  EXPECT_NE(afc.find("Le seuil d'edition des colonnes est de  0 \r\n"), std::string::npos);
  EXPECT_NE(afc.find("Facteur  1 Impression des colonnes suppl.   du tableau\r\n 50 1011 "), std::string::npos);
  EXPECT_EQ(afc.find("*---"), std::string::npos) << "no final table";
  contexte_.niveau = 2;
  ASSERT_EQ(Anecar(contexte_, {}), Fin::Normale);
  EXPECT_NE(Lire("ENQ.AFC").find("*---"), std::string::npos) << "the form proposes compact tables whatever the size";
}

// Whatever a hand may leave in the files, the run ends with a report in words.
TEST_F(RunAnecar, BrokenDeclarationsEndInAReport) {
  const std::string brt = "L1  1203\nL2  3102\nL3  0514\nL4  2220\n";
  const std::string modalites = "\nC1\nC2   S\nC3\nC4\n";
  for (const char* parametres : {"",
                                 "BRT=1",
                                 "BRT=2 FMT=1",
                                 "BRT=4 FMT=1",
                                 "BRT=5 FMT=1",
                                 "BRT=32767 FMT=1",
                                 "BRT=-3 LIGN=4 FMT=1",
                                 "BRT=1 LIGN=4 COL=3 LSUP=1 FMT=1",
                                 "BRT=1 LIGN=2 COL=4 LSUP=1 FMT=1",
                                 "BRT=1 LIGN=4 COL=-4 FMT=1",
                                 "LIGN=4 FMT=0",
                                 "LIGN=4 FMT=-1",
                                 "LIGN=4 FMT=32767",
                                 "LIGN=4 FMT=99999",
                                 "LIGN=4 LSUP=-2 FMT=1",
                                 "LIGN=4 LSUP=3 FMT=1",
                                 "LIGN=1E300 FMT=1",
                                 "LIGN=999999999999 FMT=1",
                                 "LIGN=4 FMT=1 DE=2000000000",
                                 "LIGN=4 FMT=1 DE=30",
                                 "LIGN=4 FMT=1 DE=-1"}) {
    for (const bool logique : {false, true}) {
      Table(std::string("T\n ") + parametres + modalites, brt);
      Ecrire("ENQ.CDG", "");
      OptionsAnecar options;
      options.codageLogique = logique;
      options.edition = EditionAnecar::Etendue;
      const Fin fin = Anecar(contexte_, options);
      const bool finNormale = montre_.find("Fin normale du programme\r\n") != std::string::npos;
      EXPECT_EQ(finNormale, fin == Fin::Normale) << parametres << "\n" << montre_;
      EXPECT_EQ(montre_.find("nan"), std::string::npos) << parametres;
      EXPECT_EQ(montre_.find("inf"), std::string::npos) << parametres;
      EXPECT_NE(montre_.find("Arret du programme") != std::string::npos || montre_.find("rreur") != std::string::npos ||
                    montre_.find("ERREUR") != std::string::npos,
                finNormale)
          << parametres << "\n"
          << montre_;
    }
  }
}

TEST(TriAnecar, GivesTheOrderOfTheExchangeSort) {
  std::mt19937 hasard(5);
  for (const std::size_t nombre : {0u, 1u, 2u, 3u, 7u, 16u, 33u, 200u}) {
    for (const int etendue : {1, 3, 50, 2001}) {
      std::vector<int> cles(nombre);
      for (int& cle : cles) cle = static_cast<int>(hasard() % static_cast<unsigned>(etendue)) - etendue / 2;
      std::vector<std::size_t> attendu(nombre);
      std::iota(attendu.begin(), attendu.end(), std::size_t{0});
      for (std::size_t a = 0; a < nombre; ++a)
        for (std::size_t b = a + 1; b < nombre; ++b)
          if (cles[attendu[a]] > cles[attendu[b]]) std::swap(attendu[a], attendu[b]);
      EXPECT_EQ(OrdreParEchanges(cles), attendu) << nombre << " keys over " << etendue;
    }
  }
}

TEST(LignesSupplementairesAnecar, BlocksComeBackInOrderWithTheirChanges) {
  const essai::DossierTemporaire dossier;
  const Chemin chemin = dossier.Chemin() / "travail";
  constexpr std::size_t kColonnes = 700;
  constexpr std::size_t kLignes = 1000;  // more than two blocks
  {
    LignesSupplementaires lignes(chemin, kColonnes);
    std::vector<float> ligne(kColonnes);
    for (std::size_t i = 0; i < kLignes; ++i) {
      ligne.front() = static_cast<float>(i);
      ligne.back() = 1;
      lignes.Ajouter(ligne);
    }
    lignes.Modifier([](std::size_t rang, std::span<float> l) { l.back() += static_cast<float>(rang) + l.front(); });
    std::size_t vues = 0;
    lignes.Parcourir([&](std::size_t rang, std::span<const float> l) {
      EXPECT_EQ(rang, vues++);
      ASSERT_EQ(l.back(), static_cast<float>(2 * rang + 1));
    });
    EXPECT_EQ(vues, kLignes);
  }
  EXPECT_FALSE(std::filesystem::exists(chemin));
}

// The two columns are at root(200000) on the only factor: the square of their distance is beyond every scan.
TEST_F(RunAnecar, ElementsTooFarApartAreNotClassified) {
  Table("T\n LIGN=2 FMT=7\nC1\nC2\n", "L1   200000      0\nL2        0      1\n");
  OptionsAnecar options;
  options.classification.emplace();
  EXPECT_EQ(Anecar(contexte_, options), Fin::Normale) << montre_;
  options.classification->methode = MethodeWard::Carres;
  EXPECT_EQ(Anecar(contexte_, options), Fin::Arret);
  EXPECT_NE(montre_.find("trop éloignés pour être classés"_w), std::string::npos) << montre_;
}

}  // namespace
}  // namespace quelvar
