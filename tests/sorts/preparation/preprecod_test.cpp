#include "sorts/preparation/preprecod.h"

#include <gtest/gtest.h>

#include "core/enquete/coherence.h"
#include "sorts/preparation/preprecod_options.h"
#include "support/programme.h"

using namespace quelvar::sorts;

namespace quelvar {
namespace {

constexpr std::string_view kPos =
    "Enquête\r\n 100 ( 10 ) max POND incl sex=1\r\nSEX   1 2&ACT&$Sexe$\r\nAGE   212 1-6=1 / 7-12=2 $Age$ &SUP&\r\n"
    "NOM   4 5A\r\nREV   9L3\r\nPON  12 9 S\r\n$$CUL\r\nSEX     1\r\nAGE    12 3\r\n$$NRP\r\nREV     0\r\n$$\r\nReste\r\n"_w;

class Preparation : public essai::RunDeProgramme {
 protected:
  using RunDeProgramme::Ecrire;
  using RunDeProgramme::Lire;
  void Ecrire(std::string_view octets) const { Ecrire("ENQ.POS", octets); }
  std::string Lire() const { return Lire("ENQ.POS"); }
  EtatPrepRecod Ouvrir(std::string_view pos = kPos) {
    Ecrire(pos);
    return PreparerRecodage(contexte_).value();
  }
  std::string Enregistrer(EtatPrepRecod& etat) {
    EXPECT_TRUE(EnregistrerPrepRecod(etat, contexte_));
    return Lire();
  }
  // The saved file from its question list on.
  std::string EnregistrerListe(EtatPrepRecod& etat) {
    const std::string pos = Enregistrer(etat);
    return pos.substr(pos.find("\r\n", pos.find("\r\n") + 2) + 2);
  }
};

TEST_F(Preparation, SavingWithoutAChangeKeepsTheInstructions) {
  EtatPrepRecod etat = Ouvrir();
  EXPECT_NE(etat.message.find("Une question à déjà été prise comme pondération\r\n\r\nUn filtre existe déjà"_w),
            std::string::npos);
  const std::string_view enregistre =
      "Enquête\r\n100 ( 10 ) POND=PON  MAX  incl sex=1 \r\nSEX   1 2 &ACT&$Sexe$\r\n"
      "AGE   212 1-6=1 / 7-12=2&SUP&$Age$\r\nNOM   4 5A\r\nREV   9L3 \r\nPON  12 9 S\r\n$$CUL\r\nSEX     1\r\n"
      "AGE    12 3\r\n$$NRP\r\nREV     0\r\n$$\r\nReste\r\n"_w;
  EXPECT_EQ(Enregistrer(etat), enregistre);
  std::optional<EtatPrepRecod> relu = PreparerRecodage(contexte_);
  EXPECT_EQ(Enregistrer(*relu), enregistre) << "a second save changes nothing more";
  EXPECT_FALSE(relu->modifie);
}

TEST_F(Preparation, ARuleIsStoredOnlyWithoutFault) {
  EtatPrepRecod etat = Ouvrir();
  EXPECT_FALSE(ValiderRegle(etat, "1=2"));
  EXPECT_EQ(etat.message, "Cliquer sur une question à recoder"_w);
  EXPECT_EQ(LibelleEnCours(etat), "Pas de question en cours");
  ChoisirQuestion(etat, 1);
  EXPECT_EQ(LibelleEnCours(etat), "Question en cours");
  EXPECT_FALSE(ValiderRegle(etat, "2-2=1/14=3/"));
  EXPECT_EQ(etat.message,
            "Début plus grand ou égal à fin entre la gauche et la droite d'un tiret\r\nValeur à recoder > code-max\r\n"
            "Elément vide autour d'un séparateur\r\n***Attention erreur à corriger***"_w);
  EXPECT_EQ(etat.questions[1].question.regle, "1-6=1 / 7-12=2");
  EXPECT_FALSE(etat.modifie);
  const struct {
    std::string_view texte, regle, message;
  } cas[] = {
      {" 1-3=1 / R=0 ", "1-3=1 / R=0", "La question est validée"_w},
      {"s", "s", "Recodage standard"},
      {"1=$2", "1=2", "La question est validée"_w},
      {"  ", "", "Pas de recodage"},
  };
  for (const auto& [texte, regle, message] : cas) {
    EXPECT_TRUE(ValiderRegle(etat, texte)) << texte;
    EXPECT_EQ(etat.questions[1].question.regle, regle);
    EXPECT_EQ(etat.message, message);
  }
  EXPECT_TRUE(etat.modifie);
  ValiderRegle(etat, "1=2");
  EffacerRegle(etat);
  EXPECT_EQ(etat.message, "La question est validée sans recodage"_w);
  EXPECT_TRUE(EnregistrerListe(etat).find("\r\nAGE   212 &SUP&$Age$\r\n") != std::string::npos);
}

TEST_F(Preparation, WeightingAndEffective) {
  EtatPrepRecod etat = Ouvrir("T\r\n10\r\nPds   1 9\r\n");
  EXPECT_FALSE(ValiderPonderation(etat));
  EXPECT_EQ(etat.message, "Cliquer sur une question à prendre comme pondération"_w);
  ChoisirQuestion(etat, 0);
  ValiderPonderation(etat);
  ChoisirEffectif(etat, true);
  EXPECT_EQ(Enregistrer(etat), "T\r\n10 POND=PDS  MAX \r\nPds   1 9 \r\n");
  EffacerPonderation(etat);
  EXPECT_EQ(etat.message, "Choisir une nouvelle question pour la pondération"_w);
  ChoisirEffectif(etat, false);
  EXPECT_EQ(Enregistrer(etat), "T\r\n10\r\nPds   1 9 \r\n");
}

// Both are written in upper case, where these two are one.
TEST_F(Preparation, NamesThatDifferByCapitalsAreNeitherWeightNorFilter) {
  EtatPrepRecod etat = Ouvrir("T\r\n10\r\nSex   1 2\r\nSEX   2 2\r\n");
  for (const std::size_t question : {0U, 1U}) {
    ChoisirQuestion(etat, question);
    EXPECT_FALSE(ValiderPonderation(etat));
    ChoisirSens(etat, SensFiltre::Inclure);
    EXPECT_FALSE(AjouterQuestionAuFiltre(etat));
    EXPECT_NE(etat.message.find("en majuscules"), std::string::npos) << etat.message;
  }
  EXPECT_FALSE(etat.modifie);
}

TEST_F(Preparation, AFilterIsBuiltQuestionByQuestion) {
  EtatPrepRecod etat = Ouvrir("T\r\n10\r\nSEX   1 2\r\nAGE   212\r\nREV   4L3\r\n");
  EXPECT_FALSE(AjouterQuestionAuFiltre(etat));
  EXPECT_EQ(etat.message, "Cliquer sur une question à prendre comme filtre");
  ChoisirQuestion(etat, 0);
  EXPECT_FALSE(AjouterQuestionAuFiltre(etat)) << "neither included nor excluded";
  ChoisirSens(etat, SensFiltre::Inclure);
  EXPECT_TRUE(AjouterQuestionAuFiltre(etat));
  EXPECT_EQ(CodesPourFiltre(etat), (std::vector<int>{0, 1, 2}));
  AjouterCodeAuFiltre(etat, 2);
  AjouterCodeAuFiltre(etat, 1);
  EXPECT_EQ(etat.filtreAffiche, "INCL SEX=1") << "another code of the same question";
  AjouterExpression(etat);
  EXPECT_EQ(etat.message, "Recommencer à choisir une question"_w);
  ChoisirQuestion(etat, 2);
  EXPECT_TRUE(AjouterQuestionAuFiltre(etat));
  ChoisirQuestion(etat, 1);
  EXPECT_TRUE(AjouterQuestionAuFiltre(etat));
  AjouterCodeAuFiltre(etat, 12);
  EXPECT_EQ(etat.filtreAffiche, "INCL SEX=1 + AGE=12") << "a question without code gives way";
  EXPECT_EQ(Enregistrer(etat).find("INCL"), std::string::npos) << "displayed is not validated";
  ValiderFiltre(etat);
  EXPECT_EQ(etat.message, "Le filtre affiché est validé (mais non enregistré)"_w);
  EXPECT_TRUE(Enregistrer(etat).starts_with("T\r\n10 INCL SEX=1 + AGE=12 \r\n"));
  ChoisirQuestion(etat, 0);
  EXPECT_FALSE(AjouterQuestionAuFiltre(etat));
  EXPECT_EQ(etat.filtreAffiche, "");
  EXPECT_TRUE(etat.message.starts_with("La question a déjà été utilisée : aucune individu ne peut"_w));
  ChoisirSens(etat, SensFiltre::Exclure);
  EXPECT_EQ(etat.filtreAffiche, "EXCL ");
  ChoisirSens(etat, SensFiltre::Aucun);
  EXPECT_TRUE(Enregistrer(etat).starts_with("T\r\n10\r\n"));
}

TEST_F(Preparation, AVitIsBuiltElementByElement) {
  EtatPrepRecod etat = Ouvrir("T\r\n10\r\nSEX   1 2\r\nAG    212\r\nREV   4L3\r\n**\r\nReste\r\n");
  EXPECT_FALSE(AjouterQuestionALaVit(etat));
  EXPECT_EQ(etat.message, "Cliquer sur une question à prendre comme VIT");
  CommencerVit(etat, " ");
  EXPECT_EQ(etat.message, "Nom vide, recommencez ou annulez");
  CommencerVit(etat, "Culture");
  ChoisirQuestion(etat, 0);
  EXPECT_TRUE(AjouterQuestionALaVit(etat));
  AjouterCodeALaVit(etat, 1);
  CommencerElementDeVit(etat);
  ChoisirQuestion(etat, 2);
  EXPECT_TRUE(AjouterQuestionALaVit(etat));
  EXPECT_EQ(CodesPourVit(etat).size(), 100U) << "a code has two columns";
  ChoisirQuestion(etat, 1);
  EXPECT_TRUE(AjouterQuestionALaVit(etat)) << "a question without code gives way";
  AjouterCodeALaVit(etat, 12);
  AjouterScoreALaVit(etat, " 3 ");
  EXPECT_EQ(TexteVit(etat), "$$Cul\r\nSEX     1\r\nAG     12 3");
  CommencerElementDeVit(etat);
  CommencerVit(etat, "B");
  AjouterQuestionALaVit(etat);
  AjouterCodeALaVit(etat, 12);
  AjouterScoreALaVit(etat, "+");
  ValiderVit(etat);
  EXPECT_EQ(etat.message, "La VIT affichée est validée (mais non enregistrée)"_w);
  EXPECT_TRUE(EnregistrerListe(etat).ends_with(
      "REV   4L3 \r\n$$Cul\r\nSEX     1\r\nAG     12 3\r\n$$B\r\nAG      +\r\n$$\r\n**\r\nReste\r\n"));

  ReprendreTexteVit(etat, "SEX     1");
  ValiderVit(etat);
  EXPECT_EQ(etat.vit.size(), 5U) << "a block without its name would be read as questions";
  ReprendreTexteVit(etat, "$$B\nSEX     +\n\n$$\n");
  ValiderVit(etat);
  EXPECT_EQ(etat.vit, (std::vector<std::string>{"$$B", "SEX     +"}));
  SupprimerVit(etat);
  EXPECT_EQ(etat.message, "La VIT a été supprimée"_w);
  EXPECT_TRUE(EnregistrerListe(etat).ends_with("REV   4L3 \r\n**\r\nReste\r\n"));
  SupprimerVit(etat);
  EXPECT_EQ(etat.message, "Il n'y a pas de VIT en cours");
}

TEST_F(Preparation, WhatTheScreenRefusesIsNotStored) {
  EtatPrepRecod etat = Ouvrir();
  ChoisirQuestion(etat, 2);
  EXPECT_FALSE(ValiderRegle(etat, "1=2")) << "an alphabetic question";
  EXPECT_EQ(etat.message, "NOM est une question alphabétique qui n'est pas susceptible de recodage"_w);
  ChoisirSens(etat, SensFiltre::Exclure);
  EXPECT_FALSE(ValiderFiltre(etat));
  ChoisirQuestion(etat, 0);
  AjouterQuestionAuFiltre(etat);
  EXPECT_FALSE(ValiderFiltre(etat));
  EXPECT_EQ(etat.message,
            "Le filtre affiché est incomplet, il n'est pas validé : à chaque question il faut une modalité"_w);
  EXPECT_EQ(etat.filtre, "incl sex=1");
  AjouterCodeAuFiltre(etat, 2);
  EXPECT_TRUE(ValiderFiltre(etat));
  EXPECT_EQ(etat.filtre, "EXCL SEX=2");
  AjouterExpression(etat);
  EXPECT_FALSE(ValiderFiltre(etat));
  EXPECT_FALSE(AjouterQuestionAuFiltre(etat)) << "twice";
  EXPECT_EQ(etat.filtre, "") << "the stored filter is cancelled, too";
  ReprendreTexteVit(etat, "$$V\r\nSEX     +\r\nAGE     1\r\n$$");
  EXPECT_FALSE(ValiderVit(etat));
  EXPECT_TRUE(etat.message.starts_with("Oubli de signe +"));
  EXPECT_EQ(etat.vit.front(), "$$CUL");
  ReprendreTexteVit(etat, "$$V\r\nSEX     99E9\r\n$$");
  EXPECT_FALSE(ValiderVit(etat));
  for (const char* element : {"SEX", "SEX       2", "XYZ     1"}) {
    ReprendreTexteVit(etat, Joindre({"$$V\r\nAGE     1\r\n", std::string_view(element), "\r\n$$"}));
    EXPECT_FALSE(ValiderVit(etat)) << element;
    EXPECT_TRUE(etat.message.starts_with("Un \xE9l\xE9ment de la VIT V n'a pas de ")) << etat.message;
  }
}

TEST_F(Preparation, LinesBehindADeletedVitDoNotBecomeQuestions) {
  EtatPrepRecod etat = Ouvrir();
  SupprimerVit(etat);
  EXPECT_TRUE(EnregistrerListe(etat).ends_with("PON  12 9 S\r\n**\r\nReste\r\n"));
}

TEST_F(Preparation, WhatAnotherHandHasWrittenIsNotLost) {
  EtatPrepRecod etat = Ouvrir("T\r\n10\r\nSEX   1 2\r\n");
  ChoisirQuestion(etat, 0);
  ValiderRegle(etat, "1=2");
  Ecrire("Autre titre\r\n12\r\nSEX   1 2\r\n");
  EXPECT_EQ(Enregistrer(etat), "Autre titre\r\n12\r\nSEX   1 2 1=2\r\n") << "the two first lines are read again";
  for (const std::string ailleurs :
       {"T\r\n10\r\nSEX   1 2 1=2\r\nAGE   2 8\r\n", "T\r\n10 INCL SEX=1\r\nSEX   1 2 1=2\r\n"}) {
    Ecrire(ailleurs);
    EXPECT_FALSE(EnregistrerPrepRecod(etat, contexte_));
    EXPECT_EQ(Lire(), ailleurs);
    EXPECT_TRUE(etat.message.starts_with("Le fichier *.POS a été modifié"_w));
  }
}

TEST(OptionsPrepRecod, ALineOfTheTextKeepsItsOwnSigns) {
  using Lignes = std::vector<std::string>;
  for (const auto& [texte, lignes] :
       {std::pair("", Lignes{""}), std::pair("$$A|SEX     1|", Lignes{"$$A", "SEX     1", ""}),
        std::pair(R"($$A\|B|\C\\|D\)", Lignes{"$$A|B", R"(\C\)", R"(D\)"})})
    EXPECT_EQ(DescriptionPrepRecod().Lire({{"textevit", texte}}).texteVit, lignes) << texte;
}

TEST_F(Preparation, ABrokenFileIsTold) {
  EXPECT_FALSE(PreparerRecodage(contexte_).has_value());
  EXPECT_EQ(montre_,
            "Le fichier ENQ.POS n'existe pas\r\nArrêt du programme du à l'absence d'un ou de plusieurs fichiers\r\n"_w);
  Ecrire("T\r\n");
  EXPECT_FALSE(PreparerRecodage(contexte_).has_value());
  EXPECT_NE(montre_.find("Verifiez et corrigez avant de relancer"), std::string::npos);
  montre_ = "rien";
  Ecrire("T\r\n1\r\nSEX   1 2 $Sexe\r\n");
  EXPECT_FALSE(PreparerRecodage(contexte_).has_value());
  EXPECT_EQ(boites_.back(),
            "L'intitulé de la question SEX n'est pas encadré par le signe dollar, corrigez et relancez "_w);
  Ecrire("T\r\n1 )(\r\nSEX   1 2\r\n");
  EXPECT_FALSE(PreparerRecodage(contexte_).has_value());
  EXPECT_EQ(boites_.back(), MessageParentheses());
  EXPECT_EQ(montre_, "rien");
}

}  // namespace
}  // namespace quelvar
