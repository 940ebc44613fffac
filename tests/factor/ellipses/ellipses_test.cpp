#include "factor/ellipses/ellipses.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "factor/ellipses/lecture.h"
#include "support/programme.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

Nuage NuageDe(const std::vector<Position>& points) {
  Nuage nuage;
  for (const Position point : points) nuage.Ajouter(point.x, point.y);
  return nuage;
}

TEST(Ellipses, AxesOfCloudsWorkedOutByHand) {
  const double droit = std::numbers::pi / 2;
  const struct {
    std::string cas;
    std::vector<Position> points;
    double lambda1, lambda2, angle;
  } cas[] = {
      {"wide: the axes of the plane", {{2, 0}, {-2, 0}, {0, 1}, {0, -1}}, 2, 0.5, 0},
      {"high: the first axis stands upright", {{1, 0}, {-1, 0}, {0, 2}, {0, -2}}, 2, 0.5, droit},
      {"round", {{1, 0}, {-1, 0}, {0, 1}, {0, -1}}, 0.5, 0.5, 0},
      {"far from the origin", {{12, 7}, {8, 7}, {10, 8}, {10, 6}}, 2, 0.5, 0},
      {"rising diagonal", {{1, 1}, {3, 3}}, 2, 0, droit / 2},
      {"falling diagonal", {{1, 3}, {3, 1}}, 2, 0, -droit / 2},
      // (3,4)/5 and (-4,3)/5 are its axes, with half axes 2 and 1 at right angles.
      {"oblique", {{1.2, 1.6}, {-1.2, -1.6}, {-0.8, 0.6}, {0.8, -0.6}}, 2, 0.5, std::atan(4.0 / 3)},
      {"one individual", {{0.3, -0.7}}, 0, 0, 0},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.cas);
    const std::optional<AxesDInertie> axes = AxesDuNuage(NuageDe(c.points));
    ASSERT_TRUE(axes);
    EXPECT_NEAR(axes->lambda1, c.lambda1, 1e-12);
    EXPECT_NEAR(axes->lambda2, c.lambda2, 1e-12);
    EXPECT_NEAR(axes->angle, c.angle, 1e-12);
  }
}

TEST(Ellipses, ASecondEigenvalueBelowZeroIsRoundingOrImpossible) {
  // Two points of any line have a second eigenvalue of 0, which rounding makes negative now and then.
  std::mt19937 hasard(7);
  std::uniform_real_distribution<double> tirage(-3, 3);
  for (int i = 0; i < 1000; ++i) {
    const Position a{tirage(hasard), tirage(hasard)};
    const Position b{tirage(hasard), tirage(hasard)};
    const std::optional<AxesDInertie> axes = AxesDuNuage(NuageDe({a, b}));
    ASSERT_TRUE(axes) << a.x << ' ' << a.y << ' ' << b.x << ' ' << b.y;
    EXPECT_GE(axes->lambda2, 0);
    EXPECT_NEAR(axes->lambda2, 0, 1e-9);
  }
  // Vx = Vy = 1 and C = 1 + e: the eigenvalues are 2 + e and -e.
  EXPECT_TRUE(AxesDuNuage({1, 0, 1, 0, 1, 1 + 1e-9}));
  EXPECT_FALSE(AxesDuNuage({1, 0, 1, 0, 1, 1 + 3e-9}));
  EXPECT_FALSE(AxesDuNuage({1, 0, std::numeric_limits<double>::max(), 0, 1, 0}));
}

TEST(Ellipses, ContourIsAHundredChordsFromTheEndOfTheFirstAxis) {
  const double a = 2 * std::sqrt(2.0);  // concentration: kappa 2
  const double b = 2 * std::sqrt(0.5);
  const std::vector<Position> points = ContourDEllipse({100, -200}, {2, 0.5, std::atan(4.0 / 3)}, 2);
  ASSERT_EQ(points.size(), 101U);
  const auto pres = [](Position p, double x, double y) {
    EXPECT_NEAR(p.x, x, 1e-5);
    EXPECT_NEAR(p.y, y, 1e-5);
  };
  pres(points[0], 100 + 1000 * a * 0.6, -200 + 1000 * a * 0.8);
  pres(points[25], 100 - 1000 * b * 0.8, -200 + 1000 * b * 0.6);
  pres(points[50], 100 - 1000 * a * 0.6, -200 - 1000 * a * 0.8);
  pres(points[100], points[0].x, points[0].y);
}

TEST(Ellipses, TitleNamesTheBoxesInTheirOrder) {
  EXPECT_EQ(SuiteDuTitre({}), "");
  EXPECT_EQ(SuiteDuTitre({true, true, true}), "  Ellipse(s)  de concentration  médiane  indicatrice "_w);
  EXPECT_EQ(SuiteDuTitre({false, false, true}), "  Ellipse(s)  indicatrice ");
}

class RunEllipses : public essai::RunDeProgramme {
 protected:
  RunEllipses() : RunDeProgramme(2) {
    // Modality B2 stands third in the line. A1 is had by the first four people, B2 by the last, C1 by nobody.
    Ecrire("ENQ.MOD", "Titre\n BRT=1 LIGN=9 LSUP=5 COL=4 FMT=2 CDG=1\nA1     Oui\nA2     Non\nB2     Femme\nC1\n");
    Ecrire("ENQ.AFC",
           "Le nombre de  lignes  actives est de 4 \nLe nombre de facteurs a extraire est de  2\n"
           "Valeur propre =  0.250000\nValeur propre =  0.040000\nValeur propre = -1\n");
    Ecrire("ENQ.BRT", entetes_ +
                          "1    1 0 0 0\n2    1 0 0 0\n3    1 0 0 0\n4    1 0 0 0Anne\n"
                          "5    0 1 1 0\n");
    Ecrire("ENQ.CDG", "1   1000\n2   1000\n3   1000\n    1000Bernadette\n5   0110\n");
    Ecrire("ENQ.FI2", "Ax\nAx\nAx\nAx\n" + individus_);
  }
  std::optional<std::vector<EllipsesDeModalite>> Calculer() { return CalculerEllipses(contexte_, demande_); }

  const std::string entetes_ = "A1   4 0 0 0\nA2   0 1 1 0\nB2   0 1 1 0\nC1   0 0 0 0\n";
  // Factor 1 at column 10, factor 2 at column 27.
  const std::string individus_ =
      "1     100   2000.0000  111      0.0000    0\n2     100  -2000.0000  111      0.0000    0\n"
      "3     100      0.0000  111   1000.0000    0\n4     100      0.0000  111  -1000.0000    0\n"
      "5     100    300.0000  111    500.0000    0\n";
  DemandeEllipses demande_{{1}, {2}, {true, true, true}, {{"A1  ", "Oui", 400, -500}}};
};

TEST_F(RunEllipses, AReversedAxisMirrorsCentreAndCloud) {
  Ecrire("ENQ.FI2",
         "Ax\nAx\nAx\nAx\n"
         "1     100   1000.0000  111   1000.0000    0\n2     100   3000.0000  111   2000.0000    0\n"
         "3     100      0.0000  111      0.0000    0\n4     100      0.0000  111      0.0000    0\n"
         "5     100    300.0000  111    500.0000    0\n");
  const auto droites = Calculer();
  demande_.vertical.inverse = true;
  const auto inverses = Calculer();
  ASSERT_TRUE(droites && inverses);
  EXPECT_DOUBLE_EQ(droites->at(0).centre.x, 1000) << "the mean of 1000, 3000, 0 and 0";
  EXPECT_DOUBLE_EQ(droites->at(0).centre.y, 750);
  EXPECT_DOUBLE_EQ(inverses->at(0).centre.x, droites->at(0).centre.x);
  EXPECT_DOUBLE_EQ(inverses->at(0).centre.y, -droites->at(0).centre.y);
  EXPECT_GT(droites->at(0).axes.angle, 0);
  EXPECT_DOUBLE_EQ(inverses->at(0).axes.angle, -droites->at(0).axes.angle);
  EXPECT_DOUBLE_EQ(inverses->at(0).axes.lambda2, droites->at(0).axes.lambda2);
  EXPECT_NE(Lire("ENQ.PRT").find("Ellipse médiane\r\nKappa=1.18 Pourcentage d'individus : 50.0%"_w), std::string::npos);
}

TEST(PourcentageObserve, CountsThePointsInside) {
  Nuage nuage;
  for (const Position& point : {Position{3, 1}, {-1, 1}, {1, 2}, {1, 0}, {1, 1}}) nuage.Ajouter(point.x, point.y);
  const AxesDInertie axes = AxesDuNuage(nuage).value();  // 1.6 and 0.4 around (1, 1)
  EXPECT_DOUBLE_EQ(axes.lambda1, 1.6);
  EXPECT_DOUBLE_EQ(PourcentageObserve(nuage, axes, 2), 100);
  EXPECT_DOUBLE_EQ(PourcentageObserve(nuage, axes, 1.5), 20) << "the four others stand at the root of 2.5";
  Nuage seul;
  seul.Ajouter(4, 5);
  EXPECT_DOUBLE_EQ(PourcentageObserve(seul, AxesDuNuage(seul).value(), 1), 100);
}

TEST_F(RunEllipses, AxesMayBeExchanged) {
  demande_.remarques = {"ENQ.PEM est plus ancien"};
  demande_.horizontal.facteur = 2;
  demande_.vertical.facteur = 1;
  demande_.modalites[0] = {"A1  ", "Oui", -500, 400};
  const auto ellipses = Calculer();
  ASSERT_TRUE(ellipses);
  EXPECT_DOUBLE_EQ(ellipses->at(0).centre.x, 0) << "the mean of the individuals";
  EXPECT_TRUE(Lire("ENQ.PRT").find("*** Attention : ENQ.PEM est plus ancien\r\n") != std::string::npos);
  EXPECT_DOUBLE_EQ(ellipses->at(0).axes.angle, std::numbers::pi / 2);
}

TEST_F(RunEllipses, AfterAnAnalysisOfTheLogicalCodingTheLinesAreThoseOfTheCdg) {
  Ecrire("ENQ.FI2", individus_);
  Effacer("ENQ.BRT");  // nothing to be read there
  const auto ellipses = Calculer();
  ASSERT_TRUE(ellipses);
  EXPECT_EQ(ellipses->at(0).effectif, 4);
  EXPECT_DOUBLE_EQ(ellipses->at(0).axes.lambda1, 2);

  Effacer("ENQ.CDG");
  EXPECT_TRUE(Calculer()->empty());
  EXPECT_EQ(boites_.back(), "Le fichier en codage logique n'existe pas, vérifiez et relancez"_w);
}

TEST_F(RunEllipses, RefusalsAreToldInTheReport) {
  const struct {
    std::string fichier, contenu, attendu;
  } cas[] = {
      {"ENQ.AFC", "-", "Le fichier ENQ.AFC n'existe pas\r\nArr"},
      {"ENQ.FI2", "-", "Le fichier ENQ.FI2 n'existe pas\r\nArr"},
      {"ENQ.FI2", "1\n2\n", "deja termine"},
      {"ENQ.BRT", "A1   4 0 0 0\n", "deja termine"},
      {"ENQ.AFC", "Le nombre de facteurs a extraire est de  1\nValeur propre =  0.25\n", "9 L'indice"},
      {"ENQ.AFC", "Le nombre de facteurs a extraire est de  2\nValeur propre = -0.25\nValeur propre =  1\n", " 5 Arg"},
      {"ENQ.MOD", "Titre\n BRT=4 FMT=2\nA1     Oui\n", "les individus (BRT=1)"},
      {"ENQ.MOD", "Titre\n BRT=1 LIGN=9 LSUP=5 COL=4\nA1     Oui\n", "pas de parametre FMT= dans le fichier ENQ.MOD"},
      {"ENQ.MOD", "Titre\n BRT=1 LIGN=9 LSUP=5 COL=4 FMT=2\nA2     Non\n", "9 L'indice"},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.fichier + c.contenu);
    const std::string avant = Lire(c.fichier);
    if (c.contenu == "-") Effacer(c.fichier);
    else Ecrire(c.fichier, c.contenu);
    EXPECT_FALSE(Calculer());
    EXPECT_NE(montre_.find(c.attendu), std::string::npos) << montre_;
    Ecrire(c.fichier, avant);
  }
}

// Individuals in another order than their coordinates: known by two that are alike, or by the mean of their columns.
TEST_F(RunEllipses, IndividualsStandInTheOrderOfTheirCoordinates) {
  constexpr std::size_t kIndividus = 32;
  for (const bool semblables : {true, false}) {
    Matrice colonnes(1, 5);
    for (std::size_t j = 0; j < 5; ++j) colonnes(0, j) = 100 * static_cast<double>(j * j) - 300;
    Matrice coordonnees(1, kIndividus);
    std::string lignes;
    for (std::size_t i = 0; i < kIndividus; ++i) {
      const std::size_t profil = semblables ? i % 4 + 1 : i;  // as many profiles as individuals
      double somme = 0;
      double nombre = 0;
      lignes += CadreGauche(std::to_string(i + 1), 4);
      for (std::size_t j = 0; j < 5; ++j) {
        const bool presente = (profil >> j & 1) != 0;
        lignes += presente ? '1' : '0';
        if (presente) somme += colonnes(0, j), ++nombre;
      }
      lignes += "\n";
      coordonnees(0, i) = nombre > 0 ? 1.7 * somme / nombre : 0;
    }
    Ecrire("ENQ.CDG", lignes);
    const LignesDIndividus cdg{dossier_.Chemin() / "ENQ.CDG", 0, 1, 5};
    const std::vector<bool> actives(5, true);
    EXPECT_FALSE(PremierDeplace(cdg, actives, coordonnees, &colonnes)) << semblables;
    std::swap(coordonnees(0, 9), coordonnees(0, 12));
    const auto deplace = PremierDeplace(cdg, actives, coordonnees, &colonnes);
    ASSERT_TRUE(deplace) << semblables;
    EXPECT_EQ(*deplace, 10) << semblables;
  }
}

}  // namespace
}  // namespace quelvar
