#include "sorts/regles/regles.h"

#include <gtest/gtest.h>

#include "core/panne/erreur.h"
#include "core/texte/texte.h"
#include "sorts/regles/taille.h"
#include "sorts/regles/vit.h"

using namespace quelvar::sorts;

namespace quelvar {
namespace {

std::string Codes(const std::vector<int>& table) {
  std::string texte;
  for (const int code : table) texte += std::to_string(code) + " ";
  return texte;
}

RegleVerifiee Verifier(std::string_view regle, BornesRegle bornes, UsageRegle usage = UsageRegle::Moteur) {
  return VerifierRegle(LireRegle(regle), bornes, usage);
}

TEST(Regle, GivesANewCodeToEachOldOne) {
  const struct {
    std::string_view regle;
    int codeMax;
    std::string_view table;
  } cas[] = {
      {"1-2=1/3-4=2", 5, "0 1 1 2 2 5 "},
      {"1,3,5=0", 5, "0 0 2 0 4 0 "},
      {"1-3=1/R=0", 4, "0 1 1 1 0 "},
      {" 1 - 2 , 4 = 10 / * = 9 ", 4, "9 10 10 9 10 "},
      {"=7/2=1", 2, "7 7 1 "},
      {"reste=3", 2, "3 3 3 "},
      {"0=4", 2, "4 1 2 "},
      {"R=1/e=2", 1, "2 2 "},
      {"S", 3, "0 1 2 3 "},
      {" s ", 2, "0 1 2 "},
      {"AUTRES=2", 1, "2 2 "},
      {"-2=5", 3, "5 5 5 3 "},
  };
  for (const auto& [regle, codeMax, table] : cas) {
    const RegleVerifiee verifiee = Verifier(regle, {codeMax, 9});
    EXPECT_TRUE(verifiee.fautes.empty()) << regle;
    EXPECT_EQ(Codes(CompleterTable(verifiee)), table) << regle;
  }
}

// The faults in the words of both readers, in the order of the text; the largest code-max of the file is 7.
TEST(Regle, ListsItsFaults) {
  const struct {
    std::string_view regle, moteur, formulaire;
  } cas[] = {
      {"", "Expression vide a la question: Q", "Elément vide autour d'un séparateur"_w},
      {"1=1/", "Expression vide a la question: Q", "Elément vide autour d'un séparateur"_w},
      {"12", "Defaut de signe egal a la question : Q", "Défaut de signe égal"_w},
      {"1=1000/1=1", "Erreur a droite d'un signe egal a question : Q|Question : Q : recodage deja fait",
       "Erreur à droite d'un signe égal|Recodage d'une des modalités deja fait"_w},
      {"1= ", "Erreur a droite d'un signe egal a question : Q", "Erreur à droite d'un signe égal"_w},
      {"1=-1", "Signe interdit (-, caractère 3 de la règle) a la question : Q"_w,
       "Signe interdit (-, caractère 3 de la règle)"_w},
      {"1==3", "Signe interdit (=, caractère 3 de la règle) a la question : Q"_w,
       "Signe interdit (=, caractère 3 de la règle)"_w},
      {"1-2,3-4-5=3", "Signe interdit (-, caractère 8 de la règle) a la question : Q"_w,
       "Signe interdit (-, caractère 8 de la règle)"_w},
      {"SS", "Signe interdit (S, caractère 1 de la règle) a la question : Q"_w,
       "Signe interdit (S, caractère 1 de la règle)"_w},
      {"1=2/ S", "Signe interdit (S, caractère 6 de la règle) a la question : Q"_w,
       "Signe interdit (S, caractère 6 de la règle)"_w},
      {"R", "Defaut de signe egal a la question : Q", "Défaut de signe égal"_w},
      {"1 = 2 / 3 = x", "Signe interdit (x, caractère 13 de la règle) a la question : Q"_w,
       "Signe interdit (x, caractère 13 de la règle)"_w},
      {"1.2=3", "Signe interdit (., caractère 2 de la règle) a la question : Q"_w,
       "Signe interdit (., caractère 2 de la règle)"_w},
      {"1;2=3", "Signe interdit (;, caractère 2 de la règle) a la question : Q"_w,
       "Signe interdit (;, caractère 2 de la règle)"_w},
      {"1e=2", "Signe interdit (e, caractère 2 de la règle) a la question : Q"_w,
       "Signe interdit (e, caractère 2 de la règle)"_w},
      {",1=2", "Element vide a la question : Q", "Elément vide à gauche du signe égal"_w},
      {"1-1=2", "Debut plus grand que fin a la question : Q",
       "Début plus grand ou égal à fin entre la gauche et la droite d'un tiret"_w},
      {"2-=1", "Debut plus grand que fin a la question : Q", "Element vide autour d'un tiret"},
      {"-2=1", "", "Element vide autour d'un tiret"},
      {"=1", "", "Elément vide à gauche du signe égal"_w},
      {"6=1", "Q question Recodage > code-max", "Valeur à recoder > code-max"_w},
      {"4-7=1", "Q question Recodage > code-max|Q question Recodage > code-max", "Une modalité à recoder > code-max"_w},
      {"3=1/2-6=1", "Question : Q : recodage deja fait|Q question Recodage > code-max",
       "Recodage d'une des modalités deja fait|Une modalité à recoder > code-max"_w},
      {"6-9=1/1",
       "Q question Recodage > code-max|Q question Recodage > code-max|Q question STOP : codage > max des code-max",
       "Une modalité à recoder > code-max|Défaut de signe égal"_w},
      {"99999=1", "Q question STOP : codage > max des code-max", "Valeur à recoder > code-max"_w},
      {"S/1=1", "Signe interdit (S, caractère 1 de la règle) a la question : Q"_w,
       "Signe interdit (S, caractère 1 de la règle)"_w},
      {"e=1/0=1", "", "Recodage d'une des modalités deja fait"_w},
  };
  for (const auto& [regle, moteur, formulaire] : cas) {
    std::string dits;
    for (const FauteTrouvee& faute : Verifier(regle, {5, 7}).fautes)
      dits += (dits.empty() ? "" : "|") + TexteFaute(faute, "Q");
    EXPECT_EQ(dits, moteur) << regle;
    dits.clear();
    for (const FauteTrouvee& faute : Verifier(regle, {5, 7}, UsageRegle::Formulaire).fautes)
      dits += (dits.empty() ? "" : "|") + TexteFauteFormulaire(faute);
    EXPECT_EQ(dits, formulaire) << regle;
  }
}

TEST(LigneTaille, KeywordsStandInAnyOrderAndCase) {
  const struct {
    std::string_view ligne, avant, question, filtre;
    bool ponderation, maximum;
    SensFiltre sens;
  } cas[] = {
      {" 100 ", " 100 ", "", "", false, false, SensFiltre::Aucun},
      {" 100 ( 20 ) POND", " 100 ( 20 ) ", "", "", true, false, SensFiltre::Aucun},
      {"100 max pond=pds", "100 ", "PDS", "", true, true, SensFiltre::Aucun},
      {"100 POND = AB MAX ", "100 ", "AB", "", true, true, SensFiltre::Aucun},
      {"100 POND=MAX", "100 ", "MAX", "", true, false, SensFiltre::Aucun},
      {"100 Incl MAX=2 + PON=1", "100 ", "", "Incl MAX=2 + PON=1", false, false, SensFiltre::Inclure},
      {"POND=P EXCL A=1", "", "P", "EXCL A=1", true, false, SensFiltre::Exclure},
      {"POND=", "", "", "", true, false, SensFiltre::Aucun},
  };
  for (const auto& c : cas) {
    const ConsignesTaille lues = LireConsignesTaille(c.ligne);
    EXPECT_EQ(lues.avant, c.avant) << c.ligne;
    EXPECT_EQ(lues.question, c.question) << c.ligne;
    EXPECT_EQ(lues.filtre, c.filtre) << c.ligne;
    EXPECT_EQ(lues.ponderation, c.ponderation) << c.ligne;
    EXPECT_EQ(lues.maximum, c.maximum) << c.ligne;
    EXPECT_EQ(lues.sens, c.sens) << c.ligne;
    EXPECT_FALSE(lues.deuxSens) << c.ligne;
  }
  EXPECT_TRUE(LireConsignesTaille("9 EXCL A=1 INCL B=1").deuxSens);
}

TEST(Filtre, IsAListOfComparisons) {
  const auto ecrire = [](std::string_view filtre) {
    const ExpressionFiltre lue = LireFiltre(filtre);
    if (lue.sansBlanc) return std::string("sans blanc");
    std::string texte;
    for (const ElementFiltre& e : lue.elements) texte += e.vide ? "vide " : e.nom + (e.egal ? "=" + e.code : "") + " ";
    return texte;
  };
  EXPECT_EQ(ecrire("INCL A B=1 2 + c=x&D"), "AB=12 c=x D ");
  EXPECT_EQ(ecrire("INCL A=1+"), "A=1 vide ");
  EXPECT_EQ(ecrire("INCL "), "vide ");
  EXPECT_EQ(ecrire("INCL"), "sans blanc");
  EXPECT_EQ(ecrire("EXCLA=1"), "sans blanc");
}

TEST(BlocVit, IsReadUpToItsClosingMark) {
  const std::vector<std::string> lignes = {"$$CUL  ", "LEC     1 2", "AGE    10", "CIN",
                                           " $$ NRP", "SEX    + 0",  "$$  ",      "apres"};
  const BlocVit bloc = LireBlocVit(lignes);
  ASSERT_EQ(bloc.vits.size(), 2U);
  EXPECT_EQ(bloc.lignes, 7U);
  const Vit& cul = bloc.vits[0];
  EXPECT_EQ(cul.nom, "CUL");
  ASSERT_EQ(cul.elements.size(), 3U);
  EXPECT_EQ(cul.elements[0].score, 2);
  EXPECT_EQ(cul.elements[1].code, 10);
  EXPECT_EQ(cul.elements[1].score, 1) << "an absent score counts as 1";
  EXPECT_TRUE(cul.elements[2].sansCode);
  EXPECT_FALSE(cul.PlusOublie());
  EXPECT_EQ(bloc.vits[1].nom, " NRP");
  EXPECT_TRUE(bloc.vits[1].Additive());
  EXPECT_EQ(bloc.vits[1].elements[0].score, 1) << "a score of 0 counts as 1";
}

TEST(BlocVit, OddBlocks) {
  EXPECT_TRUE(LireBlocVit(std::vector<std::string>{"$$", "LEC     1"}).vits.empty());
  EXPECT_EQ(LireBlocVit(std::vector<std::string>{"$$A", "LEC     1"}).lignes, 2U) << "the end of the file closes it";
  EXPECT_TRUE(LireBlocVit(std::vector<std::string>{"$$A", "B      1", "C      +"}).vits[0].PlusOublie());
  std::vector<std::string> lignes(52, "LEC     1");
  lignes[0] = "$$A";
  EXPECT_THROW(LireBlocVit(lignes), Erreur);
  lignes.pop_back();
  EXPECT_EQ(LireBlocVit(lignes).vits[0].elements.size(), 50U);
  EXPECT_THROW(LireBlocVit(std::vector<std::string>(51, "$$A")), Erreur);
}

}  // namespace
}  // namespace quelvar
