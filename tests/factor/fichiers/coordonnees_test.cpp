#include "factor/fichiers/coordonnees.h"

#include <gtest/gtest.h>

#include "support/environnement.h"

using namespace quelvar::factor;

namespace quelvar {
namespace {

class Coordonnees : public ::testing::Test {
 protected:
  Chemin Fichier(std::string_view contenu) {
    essai::EcrireOctets(dossier_.Chemin() / "ENQ.FAI", contenu);
    return dossier_.Chemin() / "ENQ.FAI";
  }
  essai::DossierTemporaire dossier_;
};

TEST_F(Coordonnees, ColumnsTellTheNumberOfFactors) {
  const ElementsFactoriels faj =
      LireFaj(Fichier("SEX1  250   -500  333  12345  999\r\n"
                      "A    1000     -0    0-123456 1000\r\n"
                      "B2\r\n"));
  ASSERT_EQ(faj.Facteurs(), 2u);
  ASSERT_EQ(faj.Nombre(), 3u);
  EXPECT_EQ(faj.noms[1], "A   ");
  EXPECT_EQ(faj.inerties, (std::vector<double>{250, 1000, 0}));
  EXPECT_EQ(faj.coordonnees(0, 0), -500);
  EXPECT_EQ(faj.coordonnees(1, 1), -123456) << "touches the field before it";
  EXPECT_EQ(faj.cpf(0, 0), 333);
  EXPECT_EQ(faj.cpf(1, 1), 1000);
  EXPECT_EQ(faj.coordonnees(1, 2), 0) << "a short line";
  EXPECT_EQ(LireFaj(Fichier("")).Nombre(), 0u);
  EXPECT_EQ(LireFaj(Fichier("SEX1")).Facteurs(), 0u);
}

TEST_F(Coordonnees, RowsCarryTheirLabelBehindTheLastFactor) {
  const Chemin chemin = Fichier(
      "A1    250    750  250Oui, toujours\n"
      "1     100   1000  111\n"
      "2     100      0 1000Martin\n");
  const ElementsFactoriels tous = LireFai(chemin, 1);
  EXPECT_EQ(tous.intitules, (std::vector<std::string>{"Oui, toujours", "", "Martin"}));
  EXPECT_EQ(tous.noms[1], "1   ");
  EXPECT_EQ(tous.coordonnees(0, 1), 1000);
}

TEST_F(Coordonnees, FineCoordinatesAreCutByTheirColumns) {
  const Chemin chemin = Fichier(
      "SEX1  250   -500.1234  250    300.0000  250 Une colonne\n"
      "SEX2  250-123456.7890  250      0.5000    0 \n");
  const PointsFactoriels points = LirePoints(chemin, 2);
  EXPECT_EQ(points.coordonnees(0, 0), -500.1234);
  EXPECT_EQ(points.coordonnees(0, 1), -123456.789);
  EXPECT_EQ(points.coordonnees(1, 1), 0.5);
  EXPECT_EQ(points.intitules, (std::vector<std::string>{"Une colonne", ""}));
  EXPECT_EQ(LirePoints(chemin, 1, 1).noms, (std::vector<std::string>{"SEX2"}));
}

// What is written is read back, also where a coordinate fills its field.
TEST_F(Coordonnees, LinesWrittenAreReadBack) {
  std::string ligne = DebutDeLigne("SEX1", 250);
  AjouterFacteur(ligne, -500.1234, 333, Precision::Milliemes);
  AjouterFacteur(ligne, 123456, 1000, Precision::Milliemes);
  const ElementsFactoriels lus = LireFaj(Fichier(ligne + "\r\n\r\n"));
  ASSERT_EQ(lus.Nombre(), 1u);
  EXPECT_EQ(lus.coordonnees(0, 0), -500);
  EXPECT_EQ(lus.coordonnees(1, 0), 123456);
  EXPECT_EQ(lus.cpf(1, 0), 1000);
  ligne = DebutDeLigne("A", 1);
  AjouterFacteur(ligne, -123456.78901, 9, Precision::Fine);
  EXPECT_EQ(LirePoints(Fichier(ligne + "\n"), 1).coordonnees(0, 0), -123456.789);
}

}  // namespace
}  // namespace quelvar
