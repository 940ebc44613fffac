#include "core/document/affichage.h"

#include <gtest/gtest.h>

#include "support/environnement.h"

namespace {

using namespace quelvar;

TEST(Affichage, RegleDesPositions) {
  EXPECT_EQ(RegleDesPositions(12),
            "Positions : lignes des centaines, dizaines, unités\r\n"
            "            \r\n"
            "         1  \r\n"
            "123456789012\r\n"
            "------------\r\n"_w);
  const std::string longue = RegleDesPositions(1024);
  const std::size_t debut = longue.find('\n') + 1;
  const auto signe = [&](std::size_t ligne, std::size_t colonne) { return longue[debut + ligne * 1026 + colonne - 1]; };
  EXPECT_EQ(std::string({signe(0, 100), signe(1, 100), signe(2, 100), signe(0, 110), signe(1, 110), signe(0, 1000)}),
            "100 10");
  EXPECT_EQ(longue.size(), debut + 4 * 1026);
}

TEST(Affichage, PremiereLignePlusLongueQueLaRegle) {
  for (const std::size_t longueur : {std::size_t{1024}, std::size_t{1025}}) {
    const std::string regle = RegleDesPositions(longueur);
    EXPECT_EQ(regle.starts_with("Longueur supérieur à 1024, renvoi à la ligne après cette valeur\r\n"_w),
              longueur > 1024);
    EXPECT_EQ(regle.size() - regle.find('\n') - 1, 4U * 1026);
  }
}

TEST(Affichage, TailleDeLAffichagePartiel) {
  struct Cas {
    std::size_t octets;
    bool regle;
    std::size_t montres;
  };
  const Cas cas[] = {{100, false, 100},    {30000, false, 30000}, {30001, false, 30000},
                     {30000, true, 30000}, {30001, true, 28000},  {500000, true, 28000}};
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.octets);
    const essai::DossierTemporaire dossier;
    std::string octets;
    while (octets.size() < c.octets) octets += "abcdefgh\r\n";
    octets.resize(c.octets);
    essai::EcrireOctets(dossier.Chemin() / "F.DAT", octets);
    const AffichagePartiel partiel = LirePartiel(dossier.Chemin() / "F.DAT", c.regle);
    const std::string regle = c.regle ? RegleDesPositions(8) : std::string();
    EXPECT_EQ(partiel.texte, regle + octets.substr(0, c.montres));
    EXPECT_EQ(partiel.entier, c.montres == c.octets);
  }
}

TEST(Affichage, LignesTropLonguesRenvoyees) {
  const essai::DossierTemporaire dossier;
  essai::EcrireOctets(dossier.Chemin() / "F.DAT", std::string(1024, 'a') + "b\r\n" + std::string(1024, 'c') + "\r\nd");
  const AffichagePartiel partiel = LirePartiel(dossier.Chemin() / "F.DAT", true);
  EXPECT_EQ(partiel.texte,
            RegleDesPositions(1025) + std::string(1024, 'a') + "\r\nb\r\n" + std::string(1024, 'c') + "\r\nd");
}

}  // namespace
