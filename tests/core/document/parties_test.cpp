#include "core/document/parties.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/panne/erreur.h"
#include "support/environnement.h"

namespace quelvar {
namespace {

TEST(Parties, BreaksBetweenLines) {
  const essai::DossierTemporaire dossier;
  const Chemin fichier = dossier.Chemin() / "LONG.TCR";
  struct Cas {
    std::string octets;
    std::uintmax_t taille;
    std::vector<std::string> parties;
  };
  const Cas cas[] = {
      {"", 8, {""}},
      {"abc\ndef\n", 8, {"abc\ndef\n"}},
      {"abc\ndef\nghi", 4, {"abc\n", "def\n", "ghi"}},  // a part ends just where a line does
      {"abcdef\nghi\njk\n", 5, {"abcdef\n", "ghi\n", "jk\n"}},
      {"a\nbcdefghijklmnop\nq\n", 5, {"a\nbcd", "efghi", "jklmnop\n", "q\n"}},  // a line over three parts
      {std::string(10000, 'x') + "\ny\n", 6000, {std::string(10000, 'x') + "\n", "y\n"}},
  };
  for (const Cas& c : cas) {
    essai::EcrireOctets(fichier, c.octets);
    std::vector<std::string> parties;
    for (std::size_t i = 0; i < NombreDeParties(c.octets.size(), c.taille); ++i)
      parties.push_back(LirePartie(fichier, i, c.taille));
    EXPECT_EQ(parties, c.parties);
    EXPECT_EQ(LirePartie(fichier, parties.size(), c.taille), "");
  }
  EXPECT_THROW(LirePartie(dossier.Chemin() / "absent", 0, 8), Erreur);
}

}  // namespace
}  // namespace quelvar
