#include "core/session/generique.h"

#include <gtest/gtest.h>

#include <string>

#include "core/session/generiquelibre.h"
#include "support/environnement.h"

namespace quelvar {
namespace {

struct Pas {
  std::string avant, apres;
};

TEST(GeneriqueSuivant, StepsTheLastCharacter) {
  const Pas pas[] = {
      {"ENQ0", "ENQ1"}, {"ENQ1", "ENQ2"}, {"ENQ8", "ENQ9"}, {"ENQ9", "ENQA"}, {"ENQ", "ENR"},
      {"ENQY", "ENQZ"}, {"ENQZ", "ENQA"}, {"enqa", "enqb"}, {"enqy", "enqz"}, {"enqz", "enqA"},
      {"ENQ-", "ENQA"}, {"ENQ:", "ENQA"}, {"ENQ@", "ENQA"}, {"ENQ_", "ENQA"}, {"ENQ`", "ENQA"},
      {"ENQ{", "ENQA"}, {"ENQ ", "ENQA"}, {"9", "A"},       {"", ""},
  };
  for (const Pas& p : pas) EXPECT_EQ(GeneriqueSuivant(p.avant), p.apres) << p.avant;
  EXPECT_EQ(GeneriqueSuivant("enqu\xEAt\xE9"), "enqu\xEAtA");
}

// A report or a spreadsheet alone takes the name; what a run under way writes does not.
TEST(GeneriqueLibre, WhateverFileStandsUnderTheName) {
  const essai::DossierTemporaire dossier;
  for (const char* nom : {"enr.rec", "ENS.FAJ", "ENT.csv", "ENU", "ENV.BRT.~12-1"})
    essai::EcrireOctets(dossier.Chemin() / nom, "");
  for (const char* pris : {"ENR", "ENS", "ENT"}) EXPECT_TRUE(GeneriqueExiste(dossier.Chemin(), pris)) << pris;
  for (const char* libre : {"EN", "ENU", "ENV"}) EXPECT_FALSE(GeneriqueExiste(dossier.Chemin(), libre)) << libre;
  EXPECT_EQ(GeneriqueLibre(dossier.Chemin(), "ENQ"), "ENU");
}

TEST(GeneriqueLibre, TheReportOfARunThatStoppedLeavesTheNameFree) {
  const struct {
    const char* voisin;
    std::string_view rapport;
    bool libre;
  } cas[] = {{"ENS.POS", "   Tri\r\nErreur\r\n", true},
             {"ENR.BRT.~12-1", "   Tri\r\n", true},
             {"enr.pem", "   Tri\r\n", false},
             {"ENS.POS", "   Croisement\r\n", false},
             {"ENS.POS", "   Tri\r\n*** Attention, changement de nom générique ***\r\n"_w, false}};
  for (const auto& [voisin, rapport, libre] : cas) {
    const essai::DossierTemporaire dossier;
    essai::EcrireOctets(dossier.Chemin() / voisin, "");
    essai::EcrireOctets(dossier.Chemin() / "ENR.prt", rapport);
    EXPECT_EQ(NAQueLeRapportDUnArret(dossier.Chemin(), "ENR", "Tri"), libre) << voisin << rapport;
  }
}

}  // namespace
}  // namespace quelvar
