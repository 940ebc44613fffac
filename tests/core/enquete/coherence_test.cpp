// A table and a logical coding that are not those of their .MOD.
#include "core/enquete/coherence.h"

#include <gtest/gtest.h>

#include "support/environnement.h"
#include "support/erreur.h"

namespace quelvar {
namespace {

// The sentence of the refusal; empty when the file is taken.
std::string Refus(bool cdg, std::string_view mod, std::string_view contenu) {
  const essai::DossierTemporaire dossier;
  const Chemin fichier = dossier.Chemin() / "ENQ.XXX";
  essai::EcrireOctets(dossier.Chemin() / "ENQ.MOD", mod);
  essai::EcrireOctets(fichier, contenu);
  const FichierMod lu = LireMod(dossier.Chemin() / "ENQ.MOD");
  const ParametresMod parametres = LireParametres(lu.parametres, "ENQ.MOD");
  try {
    if (cdg) ExigerCdgDuMod(fichier, lu, parametres);
    else ExigerTableDuMod(fichier, lu, parametres);
  } catch (const Erreur& erreur) {
    return erreur.Phrase();
  }
  return {};
}

TEST(Coherence, FilesThatBelongTogetherAndOthers) {
  struct Cas {
    bool cdg;
    const char* parametres;
    const char* contenu;
    const char* dit;  // nothing: the file is taken
  };
  for (const Cas& c : {
           Cas{false, "BRT=2 FMT=2", "A1   3 0\nA2   0 4\n", ""},
           Cas{false, "BRT=2 FMT=2", "A1   3 0\nB2   0 4\n", "porte le nom B2 au lieu de A2"},
           Cas{false, "BRT=3 FMT=2", "A1   3 0\nA2   0 4\n", "annonce 3 colonnes et nomme 2"},
           Cas{false, "BRT=2 FMT=2", "A1   3 0\n", "il a 1 lignes au lieu de 2"},
           Cas{false, "BRT=2 FMT=3", "A1   3 0\nA2   0 4\n", "plus courtes"},
           Cas{false, "LIGN=2 FMT=2", "L1   3 0\nL2   0 4Sud\n", ""},
           Cas{false, "LIGN=2 FMT=2", "", "il est vide"},
           Cas{false, "LIGN=2 FMT=2", "L1   3 0\nL2   0 4\nL3   5 1\n", ""},  // what is left is told by its program
           Cas{false, "LIGN=2 FMT=2", "L1   3 0\nL2   0 ", "au milieu d'un nombre"},
           Cas{false, "LIGN=2 FMT=2", "L1   3 0\nL2   0 \n", ""},  // a hand has left blanks out
           Cas{false, "LIGN=2 COL=3 FMT=2", "L1   3 0 9\nL2   0 4 1\n", "annonce 3 colonnes et nomme 2"},
           Cas{false, "LIGN=2 COL=4 FMT=2", "L1   3 019\nL2   0 420\n", ""},  // rows and columns together
           Cas{false, "LIGN=2 FMT=2", "L1   3 01984\nL2   0 41985\n", ""},    // labels that are numbers
           Cas{true, "BRT=1 COL=2 LSUP=2 FMT=1", "1   01\n2   10\n", ""},
           Cas{true, "BRT=1 COL=2 LSUP=3 FMT=1", "1   01\n2   10\n", "il a 2 individus au lieu de 3"},
           Cas{true, "BRT=1 COL=2 FMT=1", "1   011\n2   100\n", "plus de 2 chiffres"},
           Cas{true, "BRT=1 COL=2 FMT=1", "    0110001\n    1010002\n", ""},  // long names
           Cas{true, "BRT=1 COL=2 FMT=1", "1   0\n2   1\n", "moins de 2 chiffres"},
       }) {
    const std::string refus = Refus(c.cdg, std::string("T\n ") + c.parametres + "\nA1\nA2\n**\n", c.contenu);
    EXPECT_EQ(refus.empty(), std::string_view(c.dit).empty()) << c.parametres << '\n' << c.contenu << refus;
    EXPECT_NE(refus.find(c.dit), std::string::npos) << refus;
  }
}

}  // namespace
}  // namespace quelvar
