#include <gtest/gtest.h>

#include "core/enquete/listemod.h"
#include "core/enquete/posfile.h"
#include "modalities/correction/modifmod.h"
#include "modalities/correction/nomemod.h"
#include "modalities/correction/nomquest.h"
#include "support/programme.h"

using namespace quelvar::modalities;

namespace quelvar {
namespace {

class Correction : public essai::RunDeProgramme {
 protected:
  Correction() : RunDeProgramme(2) {}
};

// --- the list of a .MOD ---

TEST_F(Correction, EveryPartOfTheFileSurvivesARoundTrip) {
  const std::string contenu = "T\r\n\r\nSEX0   \r\nSEX1 S Homme\r\nSEX2 zé  \r\n** x\r\n\r\nAAA\r\n   \r\n**\r\n";
  Ecrire("ENQ.MOD", contenu);
  const ListeModalites liste = LireListeModalites(dossier_.Chemin() / "ENQ.MOD");
  EXPECT_EQ(liste.textes.size(), 3U);
  EcrireListeModalites(dossier_.Chemin(), "ENQ.MOD", liste);
  EXPECT_EQ(Lire("ENQ.MOD"), contenu);
}

TEST_F(Correction, AFileOfOneLineHasNoModalities) {
  Ecrire("ENQ.MOD", "Titre");
  const ListeOuverte etat = OuvrirListe(contexte_);
  EXPECT_TRUE(etat.message.empty());
  EXPECT_TRUE(etat.textes.empty());
}

// --- ModifMod ---

TEST_F(Correction, SavingKeepsWhatAnotherProgramWroteOnTheFirstLines) {
  Ecrire("ENQ.MOD", "T\r\n BRT=2 FMT=1 \r\nSEX1   \r\nSEX2 s F\r\n**\r\nXXX1\r\n");
  ListeOuverte etat = OuvrirListe(contexte_);
  BasculerStatut(etat.textes[0]);
  Ecrire("ENQ.MOD", "T\r\n BRT=2 FMT=1  CDG=1\r\nSEX1   \r\nSEX2 s F\r\n**\r\nXXX1\r\nYYY1\r\n");
  EXPECT_EQ(EnregistrerModifMod(contexte_, etat.textes), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.MOD"), "T\r\n BRT=2 FMT=1  CDG=1\r\nSEX1 S \r\nSEX2 S F\r\n**\r\nXXX1\r\nYYY1\r\n");
  // A list made anew of other modalities is not that of the form.
  const std::string autre = "T\r\n BRT=2 FMT=1 \r\nAGE1   \r\nAGE2   \r\n";
  Ecrire("ENQ.MOD", autre);
  EXPECT_EQ(EnregistrerModifMod(contexte_, etat.textes), Fin::Arret);
  EXPECT_TRUE(Dit("Les modalit\xE9s de ENQ.MOD ont chang\xE9 depuis l'ouverture")) << montre_;
  EXPECT_EQ(Lire("ENQ.MOD"), autre);
}

// The name of a question reaches its codes of 36 on, and none of another question of the same letters.
TEST_F(Correction, TheNameOfAQuestionReachesItsCodesOfTwoDigits) {
  const std::string deux = "AGEZ   \r\nAG36   \r\nAG40 S \r\nAGRZ   \r\nAG36   \r\n";
  const std::string trois = "AG35   \r\nAG36   \r\n";
  const struct {
    std::string_view pos, nom;
    std::string avant, apres;  // empty: the run stops
  } cas[] = {
      {"AGE   140\nAGR   336\n", "AGE", deux, "AGEZ S \r\nAG36 S \r\nAG40 S \r\nAGRZ   \r\nAG36   \r\n"},
      {"AGE   140\nAGR   336\n", "AGR", deux, "AGEZ   \r\nAG36   \r\nAG40 S \r\nAGRZ S \r\nAG36 S \r\n"},
      {"", "AGE", deux, "AGEZ S \r\nAG36 S \r\nAG40 S \r\nAGRZ   \r\nAG36   \r\n"},
      {"AGE   136\nAG3   3 9\n", "AG3", "AGEZ   \r\nAG36   \r\n" + trois,
       "AGEZ   \r\nAG36   \r\nAG35 S \r\nAG36 S \r\n"},
      {"AGE   136\nAGR   336\n", "AGR", "AGEA   \r\nAGRZ   \r\n**\r\nAG36   \r\n",
       "AGEA   \r\nAGRZ S \r\n**\r\nAG36   \r\n"},
      {"AGE   136\nAGR   336\n", "AGR", "AG36   \r\nAGRZ   \r\n", ""},
  };
  for (const auto& c : cas) {
    const std::string tete = "T\r\n BRT=5 FMT=1 \r\n";
    Ecrire("ENQ.MOD", tete + c.avant);
    if (c.pos.empty()) Effacer("ENQ.POS");
    else Ecrire("ENQ.POS", Joindre({"T\n 2 \n", c.pos}));
    OptionsModifMod options;
    options.supplementaires = {std::string(c.nom)};
    EXPECT_EQ(ModifierModalites(contexte_, options), c.apres.empty() ? Fin::Arret : Fin::Normale) << montre_;
    EXPECT_EQ(Lire("ENQ.MOD"), tete + (c.apres.empty() ? c.avant : c.apres)) << c.pos << c.nom;
  }
  EXPECT_TRUE(Dit("La modalité AG36 peut être d'une autre question que AGR"_w)) << montre_;
}

// --- NomQuest ---

TEST(LigneAvecIntitule, ReadersFindTheNameAgain) {
  const struct {
    std::string_view ligne, intitule, attendue;
  } cas[] = {
      {"AAA   1 5 $Ancien$ 1=1 $reste$", "Neuf", "AAA   1 5 $Neuf$ 1=1 $reste$"},
      {"AAA   1 5 $Ancien$ &ACT&", "", "AAA   1 5 $$ &ACT&"},
      {"AAA   1 5 1=1", "Neuf", "AAA   1 5 1=1 $Neuf$"},
      {"AAA   1 5", "", "AAA   1 5"},
      {"AAA   1 5 $Ouvert", "Neuf", "AAA   1 5 $Neuf$ $Ouvert"},
      {"AAA   1 5 $Ouvert", "", "AAA   1 5 $Ouvert"},
      {"AAA   15", "Neuf", "AAA   15 $Neuf$"},
      {"AAA  1", "Neuf", "AAA  1   $Neuf$"},
  };
  for (const auto& c : cas) {
    const std::string ligne = LigneAvecIntitule(c.ligne, c.intitule);
    EXPECT_EQ(ligne, c.attendue);
    EXPECT_EQ(LireLigneQuestion(ligne).intitule, c.intitule);
    EXPECT_EQ(LireLigneQuestion(ligne).codeMax, LireLigneQuestion(c.ligne).codeMax) << ligne;
  }
}

TEST_F(Correction, NamesFindTheirQuestionsInAFileThatHasChanged) {
  Ecrire("ENQ.POS", "T\n1\nAAA   1 5 $A$\nBBB   2 5\nAAA   3 5\n");
  EtatNomQuest etat = ChargerNomQuest(contexte_);
  ASSERT_EQ(etat.questions.size(), 3U);
  EXPECT_EQ(TexteDeRecapitulatif(etat.questions[0]), "AAA A");
  NommerQuestion(etat.questions[1], "B");
  NommerQuestion(etat.questions[2], "A2");
  SauverNomQuest(contexte_, etat.questions);
  EXPECT_EQ(Lire("ENQ.POS"), "T\r\n1\r\nAAA   1 5 $A$\r\nBBB   2 5 $B$\r\nAAA   3 5 $A2$\r\n");
  Ecrire("ENQ.POS", "T\n1\nNEW   1 5\nBBB   2 5\n**\nfin\n");
  SauverNomQuest(contexte_, etat.questions);
  EXPECT_EQ(Lire("ENQ.POS"), "T\r\n1\r\nNEW   1 5\r\nBBB   2 5 $B$\r\n**\r\nfin\r\n");
}

// --- NomeMod ---

// A name that two modalities share is neither's: nothing is marked, labelled or taken out.
TEST_F(Correction, AModalityNameSharedByTwoStops) {
  Ecrire("ENQ.MOD", "T\r\n BRT=3 FMT=1 \r\nA1     un\r\nA1     deux\r\nB1     trois\r\n**\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nAAA   1 2\r\n");
  Ecrire("ENQ.DAT", "1\r\n");
  const auto avant = Fichiers("ENQ.PRT");
  OptionsModifMod statut;
  statut.supplementaires = {"A1"};
  EXPECT_EQ(ModifierModalites(contexte_, statut), Fin::Arret);
  EXPECT_TRUE(Dit("Le nom A1 est celui de 2 modalités : donnez-leur des noms différents"_w)) << montre_;
  OptionsNomeMod intitule;
  intitule.intitules = {{"A1", "X"}};
  EXPECT_EQ(NommerModalites(contexte_, intitule), Fin::Arret);
  EXPECT_TRUE(Dit("Le nom A1 est celui de 2 modalités"_w)) << montre_;
  EXPECT_EQ(Fichiers("ENQ.PRT"), avant);
}

}  // namespace
}  // namespace quelvar
