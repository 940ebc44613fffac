#include "factor/classement/ward.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <set>

#include "core/panne/erreur.h"
#include "factor/coupe/coupe.h"
#include "support/environnement.h"
#include "support/erreur.h"
#include "support/tableau.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

constexpr auto kSansSuivi = [](std::int64_t) {};

// The steps as the rules tell them, with every record searched anew when they say so.
class Temoin {
 public:
  Temoin(const Matrice& points, bool carres) : n(points.Colonnes()), taille(n, 1), proche(n), voisin(n), actif(n, 1) {
    for (std::size_t i = 0; i < n; ++i)
      for (std::size_t j = i + 1; j < n; ++j) {
        double somme = 0;
        for (std::size_t f = 0; f < points.Lignes(); ++f)
          somme += (points(f, j) - points(f, i)) * (points(f, j) - points(f, i));
        d[{i, j}] = std::sqrt(somme);
        if (carres) d[{i, j}] *= d[{i, j}];
      }
    for (std::size_t i = 0; i + 1 < n; ++i) Chercher(i);
  }
  // The merged pairs, with the distance at which they merge.
  std::vector<std::tuple<std::size_t, std::size_t, double>> Agreger() {
    std::vector<std::tuple<std::size_t, std::size_t, double>> etapes;
    for (std::size_t reste = n; reste > 1; --reste) {
      std::size_t a = n;
      double borne = 100000;
      for (std::size_t i = 0; i + 1 < n; ++i)
        if (actif[i] && proche[i] < borne) borne = proche[a = i];
      const std::size_t b = voisin[a];
      etapes.emplace_back(a + 1, b + 1, proche[a]);
      Fusionner(a, b);
    }
    return etapes;
  }

 private:
  double& D(std::size_t i, std::size_t j) { return d[{std::min(i, j), std::max(i, j)}]; }
  void Chercher(std::size_t i) {
    proche[i] = 100000;
    for (std::size_t j = i + 1; j < n; ++j)
      if (actif[j] && D(i, j) < proche[i]) {
        proche[i] = D(i, j);
        voisin[i] = j;
      }
  }
  void Fusionner(std::size_t a, std::size_t b) {
    actif[b] = 0;
    const double ab = D(a, b);
    double candidat = 100000;
    for (std::size_t k = 0; k < n; ++k) {
      if (!actif[k] || k == a) continue;
      const double mk = taille[k], ma = taille[a], mb = taille[b];
      D(k, a) = ((mk + ma) * D(k, a) + (mk + mb) * D(k, b) - mk * ab) / (mk + ma + mb);
      if (a < k && D(k, a) < candidat) {
        candidat = D(k, a);
        voisin[a] = k;
      }
      if (k < a && D(k, a) > proche[k]) {
        proche[k] = D(k, a);
        voisin[k] = a;
      }
    }
    taille[a] += taille[b];
    proche[a] = candidat;
    for (std::size_t i = 0; i + 1 < n; ++i)
      if (actif[i] && (voisin[i] == a || voisin[i] == b)) Chercher(i);
  }

  std::size_t n;
  std::map<std::pair<std::size_t, std::size_t>, double> d;
  std::vector<double> taille, proche;
  std::vector<std::size_t> voisin;
  std::vector<char> actif;
};

TEST(Ward, ShortenedSearchesFindTheStepsOfTheRules) {
  std::mt19937 hasard(17);
  for (const std::size_t n : {2u, 3u, 9u, 24u, 60u})
    for (const unsigned pas : {2u, 4u, 9u, 1000u})  // few places: many equal distances
      for (const bool carres : {false, true}) {
        Matrice points(2, n);
        for (double& x : points.Valeurs()) x = static_cast<double>(hasard() % pas) / 10;
        const auto attendues = Temoin(points, carres).Agreger();
        const auto etapes = ClasserPoints(points, carres ? MethodeWard::Carres : MethodeWard::Distances, kSansSuivi);
        ASSERT_EQ(etapes.size(), n - 1);
        for (std::size_t s = 0; s < etapes.size(); ++s) {
          const auto& [premier, second, distance] = attendues[s];
          ASSERT_EQ(static_cast<std::size_t>(etapes[s].premier), premier) << n << " " << pas << " step " << s;
          ASSERT_EQ(static_cast<std::size_t>(etapes[s].second), second) << n << " " << pas << " step " << s;
          ASSERT_EQ(etapes[s].critere, carres ? std::sqrt(distance) : distance) << n << " " << pas << " step " << s;
        }
      }
}

// On squared distances the update is that of the growth of the inertia within classes: the square of a step's height
// is 2 m m' / (m + m') times the squared distance between the two means.
TEST(Ward, HeightsOnSquaresAreThoseOfTheMeans) {
  std::mt19937 hasard(2);
  Matrice points(3, 40);
  for (double& x : points.Valeurs()) x = static_cast<double>(hasard() % 1000) / 100;
  const std::vector<EtapeWard> etapes = ClasserPoints(points, MethodeWard::Carres, kSansSuivi);
  const MembresWard membres = MembresDesEtapes(etapes);
  const auto liste = [&](std::int32_t item) {
    if (item > 0) return std::vector<std::int32_t>{item};
    const auto m = membres.DeLEtape(static_cast<std::size_t>(-item - 1));
    return std::vector<std::int32_t>(m.begin(), m.end());
  };
  double precedent = 0;
  for (const EtapeWard& etape : etapes) {
    const auto a = liste(etape.itemPremier);
    const auto b = liste(etape.itemSecond);
    double carre = 0;
    for (std::size_t f = 0; f < 3; ++f) {
      double ma = 0, mb = 0;
      for (const auto e : a) ma += points(f, static_cast<std::size_t>(e - 1)) / static_cast<double>(a.size());
      for (const auto e : b) mb += points(f, static_cast<std::size_t>(e - 1)) / static_cast<double>(b.size());
      carre += (ma - mb) * (ma - mb);
    }
    const auto na = static_cast<double>(a.size()), nb = static_cast<double>(b.size());
    EXPECT_NEAR(etape.critere * etape.critere, 2 * na * nb / (na + nb) * carre, 1e-9);
    EXPECT_GE(etape.critere, precedent - 1e-12) << "heights never go down";
    precedent = etape.critere;
  }
}

TEST(Ward, SmallAndDistantPopulations) {
  EXPECT_TRUE(ClasserPoints(Matrice(2, 0), MethodeWard::Carres, kSansSuivi).empty());
  EXPECT_TRUE(ClasserPoints(Matrice(2, 1), MethodeWard::Carres, kSansSuivi).empty());
  EXPECT_EQ(ClasserPoints(Matrice(2, 3), MethodeWard::Carres, kSansSuivi)[1].critere, 0);
  const Matrice loin = essai::MatriceDe({{0, 100000, 1}});
  EXPECT_EQ(ClasserPoints(loin, MethodeWard::Distances, kSansSuivi).size(), 1u) << "what is left is too far apart";
}

TEST(Ward, ALevelBeyondTheStepsIsTheLastOne) {
  // 1+2, 4+5, (1 2)+3, (1 2 3)+(4 5)
  const std::vector<EtapeWard> etapes = {{1, 2, 1, 2}, {4, 5, 4, 5}, {1, 3, -1, 3}, {1, 4, -3, -2}};
  EXPECT_TRUE(EtapesRestantes(etapes, 0).empty());
  EXPECT_EQ(EtapesRestantes(etapes, 3), (std::vector<std::size_t>{1, 2}));
  EXPECT_EQ(EtapesRestantes(etapes, 99), (std::vector<std::size_t>{3}));
}

TEST(Ward, ATreeFileThatIsNoTreeIsRefused) {
  const essai::DossierTemporaire dossier;
  const Chemin chemin = dossier.Chemin() / "ENQ.CAH";
  const auto lire = [&](std::string_view contenu) {
    essai::EcrireOctets(chemin, contenu);
    return LireCah(chemin);
  };
  const auto numero = [&](std::string_view contenu) { return essai::NumeroLeve([&] { lire(contenu); }); };
  const std::string_view membres = "   1    1   2\n   2    1   2   3\n";
  const std::string premiere = "INDIV = OUI\n   1    1    2    1    2\n";
  const ArbreCah arbre = lire(premiere + "   2    1    3   -1    3\n" + std::string(membres));
  EXPECT_TRUE(arbre.individus);
  ASSERT_EQ(arbre.etapes.size(), 2u);
  EXPECT_EQ(arbre.etapes[1].itemPremier, -1);
  EXPECT_EQ(arbre.etapes[1].itemSecond, 3);
  EXPECT_TRUE(lire("INDIV = NON\n").etapes.empty());

  EXPECT_EQ(numero(""), kFinDeFichierDepassee);
  for (const std::string_view ligne :
       {"   2    1    3   -2    3\n", "   2    1    3   -1    4\n", "   2    1    3   -1    0\n",
        "   2    1    3   -1   -1\n", "   2    1    3    1    3\n", "   2\n"})
    EXPECT_EQ(numero(premiere + std::string(ligne) + std::string(membres)), kIndiceHorsSelection) << ligne;
  try {
    LireCah(chemin);
    ADD_FAILURE() << "a step without items was read";
  } catch (const Erreur& erreur) {
    EXPECT_EQ(TexteDuLieu(erreur), "ENQ.CAH, ligne 3");
  }
}

TEST(Ward, AStepLeavesClassesAndAShareOfTheCriteria) {
  // 1+2, 4+5, (1 2)+3, (1 2 3)+(4 5)
  std::vector<EtapeWard> etapes = {{1, 2, 1, 2, 1}, {4, 5, 4, 5, 1}, {1, 3, -1, 3, 2}, {1, 4, -3, -2, 4}};
  std::vector<int> classes;
  std::vector<double> cumuls;
  for (const BilanDEtape& bilan : BilanDesEtapes(etapes)) {
    classes.push_back(bilan.classes);
    cumuls.push_back(bilan.cumul);
  }
  EXPECT_EQ(classes, (std::vector<int>{1, 2, 2, 1}));
  EXPECT_EQ(cumuls, (std::vector<double>{12.5, 25, 50, 100}));
  for (EtapeWard& etape : etapes) etape.critere = 0;
  EXPECT_EQ(BilanDesEtapes(etapes).back().cumul, 0);
}

// From 10,000 elements on the fields of five places touch, and a step taken over needs a sixth.
TEST(Ward, ATreeOfMoreThanTenThousandElementsIsReadBack) {
  const essai::DossierTemporaire dossier;
  const Chemin chemin = dossier.Chemin() / "ENQ.CAH";
  constexpr int kElements = 10003;
  std::string cah = "INDIV = OUI\n";
  for (int s = 1; s < kElements; ++s) {
    const std::string premier = s == 1 ? "1" : std::to_string(1 - s);
    const std::string second = std::to_string(s + 1);
    const auto droite = [](const std::string& texte, std::size_t largeur) {
      return std::string(largeur > texte.size() ? largeur - texte.size() : 0, ' ') + texte;
    };
    cah += droite(std::to_string(s), 4) + "    1" + droite(second, 5) + droite(premier, 5) + droite(second, 5) + "\n";
  }
  for (int s = 1; s < kElements; ++s) cah += "members\n";
  essai::EcrireOctets(chemin, cah);
  const ArbreCah arbre = LireCah(chemin);
  ASSERT_EQ(arbre.etapes.size(), kElements - 1u);
  for (std::size_t s = 1; s < arbre.etapes.size(); ++s) {
    ASSERT_EQ(arbre.etapes[s].itemPremier, -static_cast<int>(s));
    ASSERT_EQ(arbre.etapes[s].itemSecond, static_cast<int>(s) + 2);
  }
}

}  // namespace
}  // namespace quelvar
