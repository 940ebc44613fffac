#include "capture/apercu/sorties/classes.h"

#include <gtest/gtest.h>

namespace quelvar::capture {
namespace {

TEST(Classes, LabelsOfEqualGroupsBeforeTheImport) {
  FaitsDeColonne colonne;
  colonne.valeurs = {{"18", 2}, {"25", 2}, {"40", 1}, {"61", 1}, {"99", 9}};
  colonne.remplies = 15;
  colonne.minimum = 18;
  colonne.maximum = 61;
  ChoixDeColonne choix;
  choix.genre = Genre::Classes;
  choix.groupes = 3;
  choix.nonReponses = {"99"};
  EXPECT_EQ(LibellesDesClasses(choix, colonne), (std::vector<std::string>{"18-24", "25-39", "40-61"}));
  colonne.valeurs.clear();  // more than are kept
  EXPECT_TRUE(LibellesDesClasses(choix, colonne).empty());
}

}  // namespace
}  // namespace quelvar::capture
