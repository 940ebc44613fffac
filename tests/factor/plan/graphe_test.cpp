#include "factor/plan/graphe.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>

#include "factor/analyse/anecar.h"
#include "support/environnement.h"
#include "tables/ecapem.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

// A generic ENQ in a directory of its own.
struct Enquete {
  essai::DossierTemporaire dossier;
  Dialogue dialogue;

  Enquete& Avec(const char* extension, std::string_view octets) {
    essai::EcrireOctets(dossier.Chemin() / (std::string("ENQ") + extension), octets);
    return *this;
  }
  Contexte LeContexte() { return {dossier.Chemin(), "ENQ", 2, &dialogue}; }
  std::optional<DonneesPlan> Preparer() { return PrepGraphe(LeContexte()); }
};

constexpr ExigencesGraphe kLiens{.liens = true};
constexpr ExigencesGraphe kArbre{.cah = true};

constexpr std::string_view kMod =
    "Titre\n BRT=1 LIGN=5 COL=3 LSUP=2 FMT=1 \n"
    "A1     Un intitule qui depasse les vingt-cinq\nA2   S \nA3  s  Trois\n**\nZ9     Autre\n";
// Active columns stand first in the file of coordinates.
constexpr std::string_view kFaj =
    "A1    700   -450  600      3    4\nA3    100     20    1     30    2\nA2    200     40    5     50    6\n";

std::string Noms(const DonneesPlan& donnees) {
  std::string noms;
  for (const PointPlan& point : donnees.points)
    noms += std::string(Rogner(point.nom)) + (point.supplementaire ? "s" : "") + (point.place ? " " : "? ");
  return noms;
}

// Links, tree and classification number the modalities as the .MOD does.
TEST(Graphe, ElementsStandInTheOrderOfTheModalities) {
  Enquete enquete;
  enquete.Avec(".MOD", kMod).Avec(".FAJ", kFaj);
  enquete.Avec(
      ".FAI",
      "A1    700   -450  600      3    4Un\nA2    200     40    5     50    6\nA3    100     20    1     30    2\n"
      "1       0      7    0      8    0Pierre\n2       0      9    0     10    0\n");
  const std::optional<DonneesPlan> donnees = enquete.Preparer();
  ASSERT_TRUE(donnees);
  EXPECT_EQ(Noms(*donnees), "A1 A2s A3s 1s 2s ");  // the individuals are the last LSUP lines
  EXPECT_EQ(donnees->facteurs, 2U);
  EXPECT_EQ(donnees->colonnes, 3U);
  EXPECT_EQ(donnees->points[0].intitule, "Un intitule qui depasse l");
  EXPECT_EQ(donnees->points[3].intitule, "Pierre");
  EXPECT_EQ(donnees->coordonnees(0, 0), -450);
  EXPECT_EQ(donnees->cpf(0, 0), 600);
  EXPECT_EQ(donnees->coordonnees(1, 1), 50);
  EXPECT_EQ(donnees->cpf(0, 2), 1);
  EXPECT_EQ(donnees->coordonnees(0, 4), 9);
}

TEST(Graphe, RowsByTheKindOfTable) {
  const std::string fai =
      "1       0      7    0      8    0\n2       0      9    0     10    0\n3       0      9    0     10    0\n";
  const auto lire = [&](std::string_view parametres, bool avecFai) {
    Enquete enquete;
    enquete.Avec(".MOD", "T\n" + std::string(parametres) + "\nA1\nA2\nA3\n").Avec(".FAJ", kFaj);
    if (avecFai) enquete.Avec(".FAI", fai);
    const std::optional<DonneesPlan> donnees = enquete.Preparer();
    return donnees ? Noms(*donnees) : "stopped";
  };
  EXPECT_EQ(lire("LIGN=3 LSUP=1 FMT=4", true), "A1 A2 A3 1 2 3s ");
  EXPECT_EQ(lire("LIGN=3 FMT=4", false), "A1 A2 A3 ");
  EXPECT_EQ(lire("BRT=3 FMT=4", true), "A1 A2 A3 ");                            // rows repeat the columns
  EXPECT_EQ(lire("BRT=1 LIGN=6 COL=3 LSUP=3 FMT=4", true), "A1 A2 A3 1 2 3 ");  // the individuals were the table
  EXPECT_EQ(lire("BRT=1 LIGN=4 COL=3 LSUP=1 FMT=4", true), "A1 A2 A3 3s ");
  EXPECT_EQ(lire("BRT=1 LIGN=4 COL=3 LSUP=1 FMT=4", false), "stopped");
  EXPECT_EQ(lire("BRT=4 FMT=4", true), "stopped");
}

TEST(Graphe, OddFiles) {
  const auto lire = [](std::string_view mod, std::string_view faj) {
    Enquete enquete;
    enquete.Avec(".MOD", mod).Avec(".FAJ", faj);
    const std::optional<DonneesPlan> donnees = enquete.Preparer();
    return donnees ? Noms(*donnees) : "stopped";
  };
  EXPECT_EQ(lire("T\nBRT=2 FMT=1\nA1\nA1\n", "A1      0      7    0\nA1      0      8    0\n"), "A1 A1 ");
  EXPECT_EQ(lire("T\nBRT=2 FMT=1\nA1\nA2\n", "A2      0      7    0\n"), "A1? A2 ");  // a modality without a line
  EXPECT_EQ(lire("T\nBRT=2 FMT=1\nA1\nA2\n", "A1\n"), "stopped");                     // no factor at all
  EXPECT_EQ(lire("T\n", "A1      0      7    0\n"), "stopped");
  EXPECT_EQ(lire("T\nBRT=1e9\nA1\n", "A1      0      7    0\n"), "stopped");
  EXPECT_EQ(lire("T\nBRT=2 FMT=1\nA1\nA2\n", "A1      0 1e400    0\n"), "stopped");
}

TEST(Graphe, SharesComeFromAReportOnAsManyFactors) {
  Enquete enquete;
  enquete.Avec(".MOD", "T\nBRT=3 FMT=1\nA1\nA2\nA3\n").Avec(".FAJ", kFaj);
  EXPECT_TRUE(enquete.Preparer()->parts.empty());
  enquete.Avec(".AFC", "Pourcentage du total = 12.5\nPourcentage du total =  7.0\n");
  EXPECT_EQ(enquete.Preparer()->parts, (std::vector<double>{12.5, 7}));
  enquete.Avec(".AFC", "Pourcentage du total = 12.5\n");
  EXPECT_TRUE(enquete.Preparer()->parts.empty());
}

// A file with links to elements that the plane has not is that of another table: nothing of it is shown, and this is
// told.
TEST(Graphe, LinksAndTreesOfAnotherTable) {
  Enquete enquete;
  constexpr std::array<char, 16> liens = {1, 0, 3, 0, 0,    0,   static_cast<char>(0xA0), 0x42, -1, -1,
                                          9, 0, 0, 0, 0x48, 0x42};
  enquete.Avec(".MOD", "T\nBRT=3 FMT=1\nA1\nA2\nA3\n").Avec(".FAJ", kFaj);
  enquete.Avec(".PEM", {liens.data(), liens.size()});
  EtatPlan etat = NouveauPlan(*enquete.Preparer());
  EXPECT_TRUE(etat.donnees.liensPresents);
  etat.reglages.liens.actif = true;
  const LiensDuGraphe traces = LiensMontres(etat);
  EXPECT_TRUE(traces.traces.empty());
  enquete.Avec(".PEM", {liens.data(), 8});
  EXPECT_EQ(enquete.Preparer()->liens.size(), 1U);
  // Two elements in the tree, three modalities in the table.
  enquete.Avec(".CAH", "INDIV = NON\n   1    1    2    1    2\n   1    1   2\n");
  EXPECT_FALSE(enquete.Preparer()->cah);
  EXPECT_EQ(LireOctets(enquete.dossier.Chemin() / "ENQ.PRT").find("***"), std::string::npos);
  EXPECT_FALSE(PrepGraphe(enquete.LeContexte(), kArbre));
}

OptionsAnecar AvecArbre() {
  OptionsAnecar options;
  options.classification = OptionsWard{};
  return options;
}

// Two questions of two codes among 20 people, and what a run of each program makes of their table.
void Croiser(Enquete& enquete) {
  enquete.Avec(".POS", "Q\n20\nA     1 2\nB     2 2\n");
  enquete.Avec(".MOD", "T\n BRT=4 FMT=2 \nA  1\nA  2\nB  1\nB  2\n");
  enquete.Avec(".BRT", "A  1 8 0 6 2\nA  2 012 310\nB  1 6 3 9 0\nB  2 210 011\n");
}

// A table of the same size, in a moment: what was made of the former one is told, its links and its tree with it.
TEST(Graphe, WhatWasMadeOfAnotherTableOfTheSameSize) {
  Enquete enquete;
  Croiser(enquete);
  ASSERT_EQ(tables::Ecapem(enquete.LeContexte(), {}), Fin::Normale);
  ASSERT_EQ(Anecar(enquete.LeContexte(), AvecArbre()), Fin::Normale);
  std::optional<DonneesPlan> donnees = enquete.Preparer();
  EXPECT_TRUE(RemarquesDuPlan(donnees->etrangers).empty());
  EXPECT_EQ(donnees->liens.size(), 2U);
  enquete.Avec(".BRT", "A  1 8 0 3 5\nA  2 012 6 6\nB  1 3 6 9 0\nB  2 5 6 011\n");
  donnees = enquete.Preparer();
  EXPECT_TRUE(donnees->liens.empty());
  std::vector<std::string> remarques = RemarquesDuPlan(donnees->etrangers);
  ASSERT_EQ(remarques.size(), 1U);
  EXPECT_TRUE(remarques[0].starts_with("les coordonnées de ENQ.FAJ ne sont pas celles du tableau ENQ.BRT"_w));
  remarques = RemarquesDesFichiers(donnees->etrangers, kLiens);
  ASSERT_EQ(remarques.size(), 1U);
  EXPECT_TRUE(remarques[0].starts_with("ENQ.PEM n'est pas celui de ce tableau"));
  // Told when they are drawn, and not otherwise.
  const auto rapport = [&](const OptionsGraphe& options) {
    EXPECT_EQ(Graphe(enquete.LeContexte(), options), Fin::Normale);
    return LireOctets(enquete.dossier.Chemin() / "ENQ.PRT");
  };
  OptionsGraphe avecLiens;
  avecLiens.liens = true;
  EXPECT_EQ(rapport({}).find("ENQ.PEM n'est"), std::string::npos);
  EXPECT_NE(rapport(avecLiens).find("*** Attention : ENQ.PEM n'est pas celui"), std::string::npos);
  // The links that are there hold, but one is missing.
  Croiser(enquete);
  std::string liens = LireOctets(enquete.dossier.Chemin() / "ENQ.PEM");
  EXPECT_EQ(enquete.Avec(".PEM", liens).Preparer()->liens.size(), 2U);
  EXPECT_TRUE(enquete.Avec(".PEM", liens.substr(8)).Preparer()->liens.empty());
  EXPECT_TRUE(Concerne(enquete.Avec(".PEM", "").Preparer()->etrangers, SujetDuPlan::Liens)) << "all are missing";
  std::filesystem::remove(enquete.dossier.Chemin() / "ENQ.PEM");
  EXPECT_FALSE(Concerne(enquete.Preparer()->etrangers, SujetDuPlan::Liens)) << "nobody has made them";
  // The same table, with another status of its modalities.
  enquete.Avec(".PEM", liens).Avec(".MOD", "T\n BRT=4 FMT=2 \nA  1\nA  2\nB  1 S \nB  2 S \n");
  EXPECT_EQ(RemarquesDuPlan(enquete.Preparer()->etrangers).size(), 1U);
}

// Links of a plain table are those of the table or, after the diagonalisation, of its maximum table.
TEST(Graphe, LinksOfAPlainTable) {
  Enquete enquete;
  enquete.Avec(".MOD", "T\n LIGN=3 FMT=3 \nC1\nC2\nC3\n").Avec(".BRT", "L1    9  4  1\nL2    3  8  2\nL3    1  2 12\n");
  ASSERT_EQ(Anecar(enquete.LeContexte(), {}), Fin::Normale);
  for (const bool maximum : {false, true}) {
    ASSERT_EQ(tables::Ecapem(enquete.LeContexte(), {.diagonalisation = maximum, .liensLignes = true}), Fin::Normale);
    const std::optional<DonneesPlan> donnees = enquete.Preparer();
    EXPECT_FALSE(donnees->liens.empty());
    EXPECT_TRUE(RemarquesDuPlan(donnees->etrangers).empty()) << maximum;
  }
  enquete.Avec(".BRT", "L1    9  4  1\nL2    3  2 12\nL3    1  8  2\n");
  const std::optional<DonneesPlan> donnees = enquete.Preparer();
  EXPECT_TRUE(donnees->liens.empty());
  EXPECT_TRUE(donnees->liensLignes.empty());
}

// Every step of a tree is looked at.
TEST(Graphe, TreeOfOtherCoordinates) {
  Enquete enquete;
  Croiser(enquete);
  ASSERT_EQ(Anecar(enquete.LeContexte(), AvecArbre()), Fin::Normale);
  const std::string arbre = LireOctets(enquete.dossier.Chemin() / "ENQ.CAH");
  enquete.Avec(".FJ2",
               "A  1  300  -1000.0000  300 \nA  2  200   -999.0000  200 \nB  1  300    500.0000  300 \n"
               "B  2  200    510.0000  200 \n");
  const std::optional<DonneesPlan> donnees = enquete.Preparer();
  EXPECT_TRUE(RemarquesDuPlan(donnees->etrangers).empty());
  const std::vector<std::string> remarques = RemarquesDesFichiers(donnees->etrangers, kArbre);
  ASSERT_EQ(remarques.size(), 1U);
  EXPECT_TRUE(remarques[0].starts_with("l'arbre de ENQ.CAH a été fait sur d'autres coordonnées"_w));
  // The modalities in another order are not those of the tree.
  enquete.Avec(".MOD", "T\n BRT=4 FMT=2 \nB  1\nA  2\nA  1\nB  2\n");
  EXPECT_FALSE(enquete.Preparer()->cah);
  EXPECT_EQ(WardCoupe(enquete.LeContexte(), {.niveau = 2}), Fin::Arret);
}

// A cut gives its classes to the lines of the data: those of people who are no more the classified ones are told.
TEST(WardCoupe, IndividualsOfOtherData) {
  Enquete enquete;
  enquete.Avec(".MOD", "T\n BRT=1 LIGN=6 LSUP=4 COL=2 FMT=1 \nA  1\nA  2\n").Avec(".POS", "Q\n4\nA     1 2\n");
  enquete.Avec(".BRT", "A  120\nA  202\n1   10\n2   10\n3   01\n4   01\n")
      .Avec(".CDG", "1   10\n2   10\n3   01\n4   01\n");
  enquete.Avec(".CAH",
               "INDIV = OUI\n   1    1    2    1    2\n   2    3    4    3    4\n   3    1    3   -1   -2\n"
               "   1    1   2\n   2    3   4\n   3    1   2   3   4\n");
  const auto coupe = [&](std::string_view donnees) {
    enquete.Avec(".DAT", donnees).Avec(".PRT", "");
    EXPECT_EQ(WardCoupe(enquete.LeContexte(), {.niveau = 2, .intitulesLongs = false, .remplacer = true}), Fin::Normale);
    return LireOctets(enquete.dossier.Chemin() / "ENQ.PRT");
  };
  EXPECT_EQ(coupe("1\n1\n2\n2\n").find("***"), std::string::npos);
  EXPECT_NE(coupe("1\n2\n2\n1\n").find("*** Attention : l'individu 2 de ENQ.DAT n'a pas"), std::string::npos);
}

// The table has changed under a tree of as many modalities with the same names.
TEST(WardCoupe, ModalitiesOfAnotherTable) {
  Enquete enquete;
  Croiser(enquete);
  ASSERT_EQ(Anecar(enquete.LeContexte(), AvecArbre()), Fin::Normale);
  const auto coupe = [&] {
    enquete.Avec(".PRT", "");
    EXPECT_EQ(WardCoupe(enquete.LeContexte(), {.niveau = 2}), Fin::Normale);
    return LireOctets(enquete.dossier.Chemin() / "ENQ.PRT");
  };
  EXPECT_EQ(coupe().find("***"), std::string::npos);
  enquete.Avec(".BRT", "A  1 8 0 3 5\nA  2 012 6 6\nB  1 3 6 9 0\nB  2 5 6 011\n");
  EXPECT_NE(coupe().find("fait sur un autre tableau que celui de ENQ.BRT"), std::string::npos);
}

TEST(Graphe, AMarkThatIsNotThereLeavesTheFormerReport) {
  Enquete enquete;
  Croiser(enquete);
  ASSERT_EQ(Anecar(enquete.LeContexte(), {}), Fin::Normale);
  enquete.Avec(".PRT", "coupe d'avant\r\n");
  OptionsGraphe options;
  options.marques = {"ZZZ"};
  EXPECT_EQ(Graphe(enquete.LeContexte(), options), Fin::Arret);
  EXPECT_EQ(LireOctets(enquete.dossier.Chemin() / "ENQ.PRT"), "coupe d'avant\r\n");
}

TEST(Graphe, AgesAreToldBeyondAMoment) {
  Enquete enquete;
  Croiser(enquete);
  ASSERT_EQ(Anecar(enquete.LeContexte(), {}), Fin::Normale);
  const auto vieillir = [&](const char* nom, int secondes) {
    const auto fichier = enquete.dossier.Chemin() / nom;
    std::filesystem::last_write_time(fichier,
                                     std::filesystem::last_write_time(fichier) - std::chrono::seconds(secondes));
  };
  vieillir("ENQ.FAJ", 30);
  EXPECT_TRUE(enquete.Preparer()->etrangers.empty());
  vieillir("ENQ.FAJ", 60);
  vieillir("ENQ.AFC", 300);
  const std::optional<DonneesPlan> donnees = enquete.Preparer();
  const std::vector<std::string> remarques = RemarquesDuPlan(donnees->etrangers);
  ASSERT_EQ(remarques.size(), 2U);
  EXPECT_EQ(remarques[0], "ENQ.FAJ est plus ancien que ENQ.BRT, relancez l'analyse factorielle");
  EXPECT_TRUE(donnees->parts.empty());
}

// The plane of a principal component analysis has the four decimals of its files, at the scale of the whole ones.
TEST(Graphe, SmallCoordinatesHaveFourDecimals) {
  Enquete enquete;
  enquete.Avec(".MOD", "T\nBRT=2 FMT=1\nA1\nA2\n").Avec(".FAJ", "A1    500    123  500\nA2    500    -45  500\n");
  enquete.Avec(".FJ2", "A1    500      1.2345  500 \nA2    500     -0.4549  500 \n");
  EXPECT_EQ(enquete.Preparer()->coordonnees(0, 0), 123);  // a correspondence analysis, for all that is known
  enquete.Avec(".ACP", "Pourcentage du total = 12.5\n");
  std::optional<DonneesPlan> donnees = enquete.Preparer();
  EXPECT_EQ(donnees->echelle, 100);
  EXPECT_DOUBLE_EQ(donnees->coordonnees(0, 0), 123.45);
  EXPECT_DOUBLE_EQ(donnees->coordonnees(0, 1), -45.49);
  enquete.Avec(".FJ2", "A1    500      9.2345  500 \nA2    500     -0.4549  500 \n");
  EXPECT_EQ(enquete.Preparer()->coordonnees(0, 0), 123);  // files of two analyses
}

TEST(Graphe, ModalitiesWithoutCoordinatesAreTold) {
  Enquete enquete;
  enquete.Avec(".MOD", "T\nBRT=4 FMT=1\nA1\nA2\nA3\nA4\n").Avec(".FAJ", kFaj);
  ASSERT_TRUE(enquete.Preparer());
  EXPECT_NE(LireOctets(enquete.dossier.Chemin() / "ENQ.PRT").find("*** Attention : 1 modalit"), std::string::npos);
}

}  // namespace
}  // namespace quelvar
