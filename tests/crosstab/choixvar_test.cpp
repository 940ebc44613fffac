#include "crosstab/choixvar.h"

#include <gtest/gtest.h>

#include "core/resultats/largeurfixe.h"
#include "support/programme.h"

using namespace quelvar::crosstab;

namespace quelvar {
namespace {

using Places = std::vector<std::size_t>;

// A survey of five questions.
class ChoixVarTest : public essai::RunDeProgramme {
 protected:
  ChoixVarTest() : RunDeProgramme(2) {
    EnqueteCroisee enquete;
    for (const int codeMax : {2, 3, 8, 12, 4}) {
      QuestionCroisee question;
      question.codeMax = codeMax;
      enquete.questions.push_back(question);
    }
    etat = NouveauChoix(enquete);
  }

  void Ajouter(RoleQuestion role, const Places& questions) { AjouterAuRole(etat, role, questions, dialogue_); }

  EtatChoixVar etat;
};

// A filter of code-max 3 makes four tables; two filters add up. The order for the PEM is not for three dimensions.
TEST_F(ChoixVarTest, TroisDimensions) {
  Ajouter(RoleQuestion::Ligne, {0});
  Ajouter(RoleQuestion::Colonne, {2});
  ChoisirTroisDimensions(etat, dialogue_);
  Ajouter(RoleQuestion::Filtre, {1, 4});
  EXPECT_EQ(etat.nombreTableaux, 9);
  EXPECT_FALSE(etat.isolePossible);
  etat.ordrePem = true;
  const std::optional<DemandeCroise> demande = PreparerLancement(etat, dialogue_);
  ASSERT_TRUE(demande);
  EXPECT_FALSE(demande->ordre.pourPem);
  ChoisirDeuxDimensions(etat, dialogue_);
  EXPECT_EQ(etat.nombreTableaux, 1);
}

TEST_F(ChoixVarTest, UnSeulTableau) {
  ChoisirUnSeul(etat, true, dialogue_);
  EXPECT_EQ(TexteLancer(etat), "Lancer le tri");
  Ajouter(RoleQuestion::Ligne, {0});
  Ajouter(RoleQuestion::Colonne, {1, 2});
  EXPECT_EQ(bips_, 1);
  EXPECT_EQ(etat.titre, "Ne sélectionner qu'une ligne et une seule colonne"_w);
  EXPECT_FALSE(etat.lancerPossible);
  EXPECT_FALSE(PreparerLancement(etat, dialogue_));
  EnleverDuRole(etat, RoleQuestion::Colonne, Places{1}, dialogue_);
  const std::optional<DemandeCroise> demande = PreparerLancement(etat, dialogue_);
  ASSERT_TRUE(demande);
  EXPECT_TRUE(demande->retenir);
  ChoisirUnSeul(etat, false, dialogue_);
  EXPECT_EQ(TexteLancer(etat), "Lancer les tris");
}

TEST(Edition, ACountFitsWithOneBlankBeforeIt) {
  const struct {
    double maximum;
    int decimales, minimum, largeur;
  } cas[] = {{0, 0, 5, 5},     {9999, 0, 5, 5}, {9999.5, 0, 5, 6}, {10000, 0, 5, 6},
             {999.9, 1, 6, 6}, {1000, 1, 6, 7}, {1e9, 0, 7, 11}};
  for (const auto& [maximum, decimales, minimum, largeur] : cas)
    EXPECT_EQ(LargeurDuNombre(maximum, decimales, minimum), largeur) << maximum;
}

TEST_F(ChoixVarTest, Editions) {
  ChoisirEdition(etat, ChoixEdition::Compacte);
  EXPECT_EQ(etat.edition, ChoixEdition::Compacte);
  EXPECT_FALSE(etat.tailleVisible);
  ChoisirEdition(etat, ChoixEdition::Triangulaire);
  ChoisirEdition(etat, ChoixEdition::Etendue);
  EXPECT_TRUE(etat.tailleVisible);
  Ajouter(RoleQuestion::Ligne, {0});
  Ajouter(RoleQuestion::Colonne, {1});
  ChoisirCaractere(etat, 8);
  const std::optional<DemandeCroise> demande = PreparerLancement(etat, dialogue_);
  ASSERT_TRUE(demande);
  EXPECT_EQ(demande->edition.choix, ChoixEdition::Etendue) << "the last one chosen";
  EXPECT_EQ(demande->edition.colonnesParPage, 6);
  EXPECT_EQ(demande->edition.lignesParPage, 24);
}

}  // namespace
}  // namespace quelvar
