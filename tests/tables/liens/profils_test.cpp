// Making of links, and profiles as they are printed.
#include "tables/liens/profils.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/panne/erreur.h"
#include "support/environnement.h"
#include "support/tableau.h"
#include "tables/liens/liaisons.h"
#include "tables/liens/parnoeud.h"

using namespace quelvar::crosstab;
using namespace quelvar::tables;

namespace quelvar {
namespace {

struct Attendu {
  int premier, second;
  float valeur;
  friend bool operator==(const Attendu&, const Attendu&) = default;
};

std::vector<Attendu> En(const std::vector<Lien>& liens) {
  std::vector<Attendu> attendus;
  for (const Lien& lien : liens) attendus.push_back({lien.premier, lien.second, lien.valeur});
  return attendus;
}

// A table put in another order: rows 3, 1, 2 and columns 2, 1 of the files. Nodes are 1, 2 and 3, 4, 5.
TableauCompte TableDeplacee() {
  return Reordonner(Compter(essai::MatriceDe({{1, 2}, {3, 4}, {5, 6}})), {2, 0, 1}, {1, 0});
}

TEST(Liaisons, NoeudsDansLOrdreDesFichiers) {
  const TableauCompte table = TableDeplacee();
  const Matrice pem = essai::MatriceDe({{50, -50}, {0, 25}, {-10, 100}});
  EXPECT_EQ(En(LiensDesCellules(table, pem)), (std::vector<Attendu>{{5, 2, 50}, {3, 1, 25}, {4, 1, 100}}));
  // (50 + 75)/2, (60 + 150)/2 and (10 + 75)/2 less than 100
  EXPECT_EQ(En(LiensEntreLignes(table, pem)), (std::vector<Attendu>{{5, 3, 37.5}, {5, 4, -5}, {3, 4, 57.5}}));
}

TEST(Liaisons, LignesIdentiquesEtOpposees) {
  const TableauCompte table = Compter(Matrice(3, 2, 1));
  const Matrice pem = essai::MatriceDe({{100, -100}, {100, -100}, {-100, 100}});
  EXPECT_EQ(En(LiensEntreLignes(table, pem)), (std::vector<Attendu>{{3, 4, 100}, {3, 5, -100}, {4, 5, -100}}));
}

// More rows than are compared in one pass, against the mean written out.
TEST(Liaisons, PairesDansLOrdreDesLignes) {
  const Matrice cellules = essai::MatriceAuHasard(19, 7, 11);
  const std::vector<Lien> liens = LiensEntreLignes(Compter(cellules), cellules);
  ASSERT_EQ(liens.size(), 19U * 18 / 2);
  std::size_t n = 0;
  for (std::size_t i = 0; i < 19; ++i)
    for (std::size_t k = i + 1; k < 19; ++k, ++n) {
      double somme = 0;
      for (std::size_t j = 0; j < 7; ++j) somme += std::fabs(cellules(i, j) - cellules(k, j));
      EXPECT_EQ(liens[n].premier, static_cast<int>(8 + i));
      EXPECT_EQ(liens[n].second, static_cast<int>(8 + k));
      EXPECT_EQ(liens[n].valeur, static_cast<float>(100 - somme / 7));
    }
  EXPECT_TRUE(LiensEntreLignes(Compter(Matrice(1, 3, 1)), Matrice(1, 3, 1)).empty());
}

TEST(Liaisons, MeilleursGardes) {
  std::vector<Lien> tries(2500);
  for (std::size_t i = 0; i < tries.size(); ++i) tries[i].valeur = 100 - 0.01F * static_cast<float>(i);
  tries[2000].valeur = 80;
  for (const auto& [choix, gardes] :
       {std::pair(ChoixDeLiens::DeuxMille, 2000U), {ChoixDeLiens::IndexDe80, 2001U}, {ChoixDeLiens::Tous, 2500U}}) {
    std::vector<Lien> liens = tries;
    GarderMeilleurs(liens, choix);
    EXPECT_EQ(liens.size(), gardes);
  }
  std::vector<Lien> faibles(3);
  GarderMeilleurs(faibles, ChoixDeLiens::IndexDe80);
  EXPECT_TRUE(faibles.empty());
  faibles.resize(3);
  GarderMeilleurs(faibles, ChoixDeLiens::DeuxMille);
  EXPECT_EQ(faibles.size(), 3U);
}

// 100 individuals: 1-2 attract (PEM 50, chi-square 16.7), 1-3 repel, 2-3 have PEM 12.5 x 2 but Yates leaves nothing.
TEST(Liaisons, PairesDuBurt) {
  const DemiBurt burt{{40, 50, 5}, {30, 0, 3}};
  EXPECT_EQ(En(LiensDuBurt(burt, 100)), (std::vector<Attendu>{{1, 2, 50}}));
  EXPECT_THROW(LiensDuBurt(burt, 0), Erreur);
  EXPECT_TRUE(LiensDuBurt({}, 100).empty());
}

TEST(Liaisons, Cliques) {
  const std::vector<std::vector<std::size_t>> cliques = {LireClique("  12:  3 1  1"), LireClique("   2: 2 3"),
                                                         LireClique("   3"), LireClique("")};
  EXPECT_EQ(En(LiensDesCliques(cliques, 3, 10)), (std::vector<Attendu>{{11, 13, 100}, {12, 13, 100}}));
  for (const std::string_view ligne : {"   1: 1 4", "   1: 4", "   1: 0 1", "   1: -1", "   1: a", "   1: 70000"}) {
    const auto lire = [&] { return LiensDesCliques(std::vector<std::vector<std::size_t>>{LireClique(ligne)}, 3, 10); };
    EXPECT_THROW(lire(), Erreur) << ligne;
  }
  EXPECT_THROW(LiensDesCliques(cliques, 3, 32765), Erreur);
}

std::string Imprime(std::vector<Lien> profil, LargeurDeProfil largeur) {
  const essai::DossierTemporaire dossier;
  std::vector<std::string> noms;
  for (int i = 1; i <= 20; ++i) noms.push_back("mod" + std::to_string(i) + " libelle long");
  const std::vector<std::string_view> vues(noms.begin(), noms.end());
  TrierProfil(profil);
  Rapport rapport(dossier.Chemin() / "ENQ.PRO");
  ImprimeurDeProfils(rapport, vues, largeur).Imprimer(profil);
  rapport.Valider();
  return LireOctets(dossier.Chemin() / "ENQ.PRO");
}

TEST(Profils, BlocsDeSeize) {
  std::vector<Lien> profil;
  for (std::int16_t i = 1; i <= 17; ++i) profil.push_back({i, 0, static_cast<float>(i)});
  EXPECT_EQ(Imprime(profil, LargeurDeProfil::Compacte),
            " mod1 mod1 mod1 mod1 mod1 mod1 mod1 mod1 mod9 mod8 mod7 mod6 mod5 mod4 mod3 mod2 \r\n"
            " 17.0 16.0 15.0 14.0 13.0 12.0 11.0 10.0  9.0  8.0  7.0  6.0  5.0  4.0  3.0  2.0\r\n\r\n\r\n"
            " mod1 \r\n  1.0\r\n\r\n\r\n");
}

// Values are those of the record, in single precision: 0.35 is a little below the half of a tenth, 0.25 is
// a tie.
// Beyond 100 the field overflows or not as everywhere.
TEST(Profils, ValeursEtIntitulesLongs) {
  EXPECT_EQ(Imprime({{1, 0, 0.35F}, {2, 0, 0.25F}, {3, 0, 1000.25F}}, LargeurDeProfil::Longue),
            " mod3 libel mod1 libel mod2 libel \r\n$1000.2        0.3        0.2      \r\n\r\n\r\n");
  EXPECT_EQ(Imprime({}, LargeurDeProfil::Longue), "");
}

// A link of a Burt table stands in the profiles of both its ends, each by descending value.
TEST(Profils, GroupesParNoeud) {
  const std::vector<Lien> liens = {{1, 3, 8}, {2, 3, 9}, {1, 2, 7}};
  const auto autres = [&](LiensParNoeud::Bout bout, std::size_t noeud) {
    std::vector<int> noeuds;
    const LiensParNoeud parNoeud(liens, bout, 4);
    for (const Lien& lien : parNoeud.Profil(noeud)) noeuds.push_back(lien.premier);
    return noeuds;
  };
  using Bout = LiensParNoeud::Bout;
  EXPECT_EQ(autres(Bout::Premier, 1), (std::vector<int>{3, 2}));
  EXPECT_EQ(autres(Bout::Second, 3), (std::vector<int>{2, 1}));
  EXPECT_EQ(autres(Bout::LesDeux, 2), (std::vector<int>{3, 1}));
  EXPECT_EQ(autres(Bout::LesDeux, 4), (std::vector<int>{}));
}

}  // namespace
}  // namespace quelvar
