#include "crosstab/choixvar.h"

#include <gtest/gtest.h>

#include "support/environnement.h"

namespace quelvar {
namespace {

using Places = std::vector<std::size_t>;

// A survey of five questions and a screen that remembers its boxes and beeps.
class ChoixVarTest : public testing::Test {
 protected:
  ChoixVarTest() {
    EnqueteCroisee enquete;
    for (const int codeMax : {2, 3, 8, 12, 4}) {
      QuestionCroisee question;
      question.codeMax = codeMax;
      enquete.questions.push_back(question);
    }
    etat = NouveauChoix(enquete);
    ecran.biper = [this] { ++bips; };
    ecran.demander = [this](std::string_view texte, Boutons boutons) {
      boites.emplace_back(texte);
      return boutons == Boutons::Ok ? Reponse::Ok : reponse;
    };
    contexte = {dossier.Chemin(), "ENQ", 2, &ecran};
  }

  void Ajouter(RoleQuestion role, const Places& questions) { AjouterAuRole(etat, role, questions, ecran); }

  essai::DossierTemporaire dossier;
  Dialogue ecran;
  Contexte contexte;
  EtatChoixVar etat;
  int bips = 0;
  Reponse reponse = Reponse::Oui;
  std::vector<std::string> boites;
};

// A filter of code-max 3 makes four tables; two filters add up.
TEST_F(ChoixVarTest, TroisDimensions) {
  Ajouter(RoleQuestion::Ligne, {0});
  Ajouter(RoleQuestion::Colonne, {2});
  ChoisirUnSeul(etat, true, ecran);
  ChoisirTroisDimensions(etat, ecran);
  EXPECT_FALSE(etat.unSeul);
  EXPECT_EQ(etat.nombreTableaux, 0);
  Ajouter(RoleQuestion::Filtre, {1});
  EXPECT_EQ(etat.nombreTableaux, 4);
  EXPECT_EQ(etat.infobulle,
            "Somme des codes max  (+1 pour la valeur zéro)  des filtres x nombre de lignes x nombre de colonnes"_w);
  Ajouter(RoleQuestion::Filtre, {4});
  EXPECT_EQ(etat.nombreTableaux, 9);
  EXPECT_FALSE(etat.isolePossible);

  EXPECT_TRUE(FiltreVisible(etat, 2));
  EXPECT_FALSE(OrdreVisible(etat, 2));
  EXPECT_FALSE(FiltreVisible(etat, 1));
  etat.ordrePem = true;
  const std::optional<DemandeCroise> demande = PreparerLancement(etat, ecran);
  ASSERT_TRUE(demande);
  EXPECT_FALSE(demande->ordre.pourPem);
  EXPECT_FALSE(etat.ordrePem);
  EXPECT_EQ(demande->filtres, (Places{1, 4}));

  ChoisirDeuxDimensions(etat, ecran);
  EXPECT_EQ(etat.nombreTableaux, 1);
  EXPECT_TRUE(OrdreVisible(etat, 2));
  EXPECT_FALSE(OrdreVisible(etat, 1));
}

TEST_F(ChoixVarTest, UnSeulTableau) {
  ChoisirUnSeul(etat, true, ecran);
  EXPECT_EQ(TexteLancer(etat), "Lancer le tri");
  Ajouter(RoleQuestion::Ligne, {0});
  Ajouter(RoleQuestion::Colonne, {1, 2});
  EXPECT_EQ(bips, 1);
  EXPECT_EQ(etat.titre, "Ne sélectionner qu'une ligne et une seule colonne"_w);
  EXPECT_FALSE(etat.lancerPossible);
  EXPECT_FALSE(PreparerLancement(etat, ecran));
  EnleverDuRole(etat, RoleQuestion::Colonne, Places{1}, ecran);
  const std::optional<DemandeCroise> demande = PreparerLancement(etat, ecran);
  ASSERT_TRUE(demande);
  EXPECT_TRUE(demande->retenir);
  ChoisirUnSeul(etat, false, ecran);
  EXPECT_EQ(TexteLancer(etat), "Lancer les tris");
}

TEST_F(ChoixVarTest, Editions) {
  ChoisirEdition(etat, ChoixEdition::Compacte, 99999, ecran);
  EXPECT_EQ(etat.edition, ChoixEdition::Compacte);
  EXPECT_FALSE(etat.tailleVisible);
  ChoisirEdition(etat, ChoixEdition::Compacte, 100000, ecran);
  EXPECT_EQ(etat.edition, ChoixEdition::Etendue);
  EXPECT_TRUE(etat.tailleVisible);
  ASSERT_EQ(boites.size(), 1U);
  EXPECT_EQ(boites[0],
            "Une enquête dont l'effectif total est de100000 (>99999) ne peut être traitée qu'en édition étendue"_w);
  // Once chosen, the edition of the triangular graph stays for the life of the form.
  ChoisirEdition(etat, ChoixEdition::Triangulaire, 10, ecran);
  ChoisirEdition(etat, ChoixEdition::Etendue, 10, ecran);
  Ajouter(RoleQuestion::Ligne, {0});
  Ajouter(RoleQuestion::Colonne, {1});
  ChoisirCaractere(etat, 8);
  const std::optional<DemandeCroise> demande = PreparerLancement(etat, ecran);
  ASSERT_TRUE(demande);
  EXPECT_TRUE(demande->edition.triangulaire);
  EXPECT_EQ(demande->edition.colonnesParPage, 6);
  EXPECT_EQ(demande->edition.lignesParPage, 24);
}

}  // namespace
}  // namespace quelvar
