#include "tables/liens/liens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>

#include "support/environnement.h"
#include "support/erreur.h"

using namespace quelvar::tables;

namespace quelvar {
namespace {

using Noeuds = std::vector<std::pair<int, int>>;

Noeuds NoeudsDe(const std::vector<Lien>& liens) {
  Noeuds noeuds;
  for (const Lien& lien : liens) noeuds.emplace_back(lien.premier, lien.second);
  return noeuds;
}

// Two records written out byte by byte: (5, 258, 1.0) and (32767, -2, -0.5).
constexpr unsigned char kOctets[] = {0x05, 0x00, 0x02, 0x01, 0x00, 0x00, 0x80, 0x3F,
                                     0xFF, 0x7F, 0xFE, 0xFF, 0x00, 0x00, 0x00, 0xBF};

TEST(Liens, OctetsDuFichier) {
  const std::string octets(reinterpret_cast<const char*>(kOctets), sizeof kOctets);
  const essai::DossierTemporaire dossier;
  const std::vector<Lien> liens = {{5, 258, 1.0F}, {32767, -2, -0.5F}};
  const auto ecrire = [&](std::span<const Lien> aEcrire) {
    Ecrivain fichier(dossier.Chemin() / "ENQ.PEM");
    EcrireLiens(fichier, aEcrire);
    fichier.Fermer();
  };
  ecrire(liens);
  EXPECT_EQ(LireOctets(dossier.Chemin() / "ENQ.PEM"), octets);

  essai::EcrireOctets(dossier.Chemin() / "ENQ.PEM", octets + "cut off");  // 7 bytes are no record
  const std::vector<Lien> relus = LireLiens(ChercherFichier(dossier.Chemin(), "enq.pem"));
  EXPECT_EQ(NoeudsDe(relus), NoeudsDe(liens));
  EXPECT_EQ(relus[1].valeur, -0.5F);

  EXPECT_TRUE(LireLiens(std::nullopt).empty());
  ecrire({});
  EXPECT_EQ(LongueurFichier(dossier.Chemin() / "ENQ.PEM"), 0U);
}

TEST(Liens, NumeroDeNoeud) {
  EXPECT_EQ(NumeroDeNoeud(32767), 32767);
  EXPECT_EQ(essai::NumeroLeve([] { NumeroDeNoeud(32768); }), kDepassementCapacite);
}

// The heaps were followed by hand: the second sort starts from what the first one left.
TEST(Liens, TriParCleLUnApresLAutre) {
  std::vector<Lien> liens = {{4, 1, 20}, {4, 3, 50}, {5, 2, 50}, {6, 1, 10}, {6, 2, 70}};
  const Dialogue dialogue;
  TrierLiens(liens, ModeTri::LIGN, dialogue);
  EXPECT_EQ(NoeudsDe(liens), (Noeuds{{4, 1}, {4, 3}, {5, 2}, {6, 2}, {6, 1}}));
  TrierLiens(liens, ModeTri::COL, dialogue);
  EXPECT_EQ(NoeudsDe(liens), (Noeuds{{6, 1}, {4, 1}, {5, 2}, {6, 2}, {4, 3}}));
  TrierLiens(liens, ModeTri::NBR, dialogue);
  EXPECT_EQ(NoeudsDe(liens), (Noeuds{{6, 2}, {5, 2}, {4, 3}, {4, 1}, {6, 1}}));
}

std::vector<int> OrdreDe(const std::vector<Lien>& profil) {
  std::vector<int> ordre;
  for (const Lien& lien : profil) ordre.push_back(lien.premier);
  return ordre;
}

// The plain insertions of the shell sort with gaps n/2, n/4, ... 1, whatever their number.
void TrierParInsertion(std::vector<Lien>& profil) {
  for (std::size_t pas = profil.size() / 2; pas > 0; pas /= 2)
    for (std::size_t fin = pas; fin < profil.size(); ++fin)
      for (std::size_t i = fin; i >= pas && profil[i - pas].valeur <= profil[i].valeur; i -= pas)
        std::swap(profil[i - pas], profil[i]);
}

// Long profiles of few values take the short way, with the same result.
TEST(Liens, TriDunProfilEchangeLesEgaux) {
  // Followed by hand: gap 2, chain 1,3,5 = 5 9 5 gives 3 5 1, chain 2,4 = 5 8 gives 4 2; gap 1: 9 8 5 5 5.
  std::vector<Lien> main = {{1, 0, 5}, {2, 0, 5}, {3, 0, 9}, {4, 0, 8}, {5, 0, 5}};
  TrierProfil(main);
  EXPECT_EQ(OrdreDe(main), (std::vector<int>{3, 4, 1, 2, 5}));
  std::mt19937 hasard(9);
  for (const std::size_t taille : {0U, 1U, 2U, 3U, 4U, 10U, 33U, 100U, 777U, 2000U})
    for (const unsigned valeurs : {1U, 2U, 5U, 1000U, 0U}) {  // 0: in descending order, with ties
      std::vector<Lien> profil(taille);
      for (std::size_t i = 0; i < taille; ++i)
        profil[i] = {static_cast<std::int16_t>(i), 0,
                     static_cast<float>(valeurs == 0 ? (taille - i) / 3 : hasard() % valeurs)};
      std::vector<Lien> attendu = profil;
      TrierParInsertion(attendu);
      TrierProfil(profil);
      EXPECT_EQ(OrdreDe(profil), OrdreDe(attendu)) << taille << " records of " << valeurs << " values";
    }
}

}  // namespace
}  // namespace quelvar
