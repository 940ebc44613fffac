#include "sorts/recodage/recodage.h"

#include <gtest/gtest.h>

#include "sorts/recodage/etiquettes.h"
#include "support/programme.h"

using namespace quelvar::sorts;

namespace quelvar {
namespace {

class RunRecodage : public essai::RunDeProgramme {
 protected:
  Fin Executer(const OptionsRecodage& options = {}) { return Recodage(contexte_, options); }
};

TEST_F(RunRecodage, AStoppedRunLeavesTheNewGenericAlone) {
  std::string sixCentsUne = "T\n 1 \n";
  for (int i = 0; i < 601; ++i) sixCentsUne += "AAA   1 2\n";
  const struct {
    std::string_view pos, donnees, texte;
  } cas[] = {
      {"T\n", "1\n", "Il y a eu tentative de lire un fichier deja termine"},
      {"T\n 1 \nAAA   1 2\nBBB   0 2\n", "1\n", "a la question  2  nom=BBB"},
      {"T\n 1 \nAAA9E9  2\n", "1\n", "notez le numero =  6 "},
      {"T\n 2 \nAAA   1L3\n", "123\n9E9\n", "notez le numero =  6 "},
      {"T\n 2 POND\nPON   112A\n", "1\n999999999999\n", "notez le numero =  6 "},
      {sixCentsUne, "1\n", "\r\n***  Plus de questions que le maximum possible\r\nArret pour trop de questions\r\n"},
      {"T\n 1 INCL A=1 EXCL A=2\nA     1 2\n", "1\n", "\r\n***  Inclure et exclure presents en meme temps\r\n"},
      {"T\n 1 \nAAA   1 2 1=10/1=2\n", "1\n",
       "Question : AAA : recodage deja fait\r\n\r\n***  Nouveau code trop large pour la question : AAA\r\n"},
      {"T\n 1 \nAAA   1 2 1=x\n", "1\n", "Signe interdit (x, caractère 3 de la règle) a la question : AAA"_w},
      {"T\n 2 INCL AAA=7\nAAA   1 2\n", "1\n2\n", "Arrêt du programme : le filtre ne garde aucun individu"_w},
      {"T\n 2 EXCL AAA=7\nAAA   1 2 4=1\nTXT   2L3A\n", "1\n2\n", "STOP : codage > max des code-max"},
      {"T\n 1 \nAAA9999 2\n$$V\nAAA     1\n$$\n", "1\n", "notez le numero =  6 "},
      {"T\n 1 \nAAA   1 2\n$$V\nAAA     199999\n$$\n", "1\n", "notez le numero =  6 "},
  };
  for (const auto& [pos, donnees, texte] : cas) {
    Ecrire("ENQ.POS", pos);
    Ecrire("ENQ.DAT", donnees);
    Ecrire("ENR.POS", "ancien");
    Ecrire("ENR.DAT", "ancien");
    EXPECT_EQ(Executer(), Fin::Arret) << texte;
    EXPECT_TRUE(Dit(texte)) << texte << montre_;
    EXPECT_EQ(Fichiers("ENR.REC"), (std::map<std::string, std::string>{{"ENQ.DAT", std::string(donnees)},
                                                                       {"ENQ.POS", std::string(pos)},
                                                                       {"ENR.DAT", "ancien"},
                                                                       {"ENR.POS", "ancien"}}))
        << texte;
  }
}

TEST_F(RunRecodage, NamesAreFoundTrimmedAndExactlyFirst) {
  const struct {
    std::string_view pos;  // behind line 1; the questions stand for the columns of "123"
    std::string_view sortie, texte;
  } cas[] = {
      {" 1 INCL W1=2\nW10   1 9\n W1   2 9\n", "123\r\n", "W1 2"},
      {" 1 INCL W1=2\nW10   1 9\nW 1   2 9\n", "123\r\n", "W1 2"},
      {" 1 INCL 0=1\nW10   1 9\n W1   2 9\n", "123\r\n", "0 1"},
      {" 1 INCL W=1\nW10   1 9\n W1   2 9\n", "", "Le nom W est celui de 2 questions, aux positions 1 et 2"},
      {" 1 POND=lec MAX\nLEC   2 9\nlec   1 9\n", "123\r\n", "utilisant la question lec"},
      {" 1 POND=P MAX INCL A=2\nP     2 9\nA     2 9\n", "123\r\n123\r\n", "utilisant la question P"},
      {" 1 MAX POND=P INCL A=2\nP     2 9\nA     2 9\n", "123\r\n123\r\n", "utilisant la question P"},
      {" 1 INCL W1=x\nW1    1 9\n", "", "le code 'x' de l'"},
      {" 1 INCL W1=\nW1    1 9\n", "", "le code '' de l'"},
      {" 1 INCL W1=-1\nW1    1 9\n", "", "le code '-1' de l'"},
      {" 1 POND=W1 MAX\nW10   1 9\n W1   2 9\n", "123\r\n123\r\n", "utilisant la question  W1"},
      {" 1 \nW10   1 9\n W1   2 9\n$$V\nW1      2\n$$\n", "1231\r\n", "W1      2"},
      {" 1 INCL lec=1\nLEC   2 9\nlec   1 9\n", "123\r\n", "LEC 1"},
      {" 1 INCL W1=2\n W1   1 9\nW1    2 9\n", "", "Le nom W1 est celui de 2 questions, aux positions 1 et 2 : "},
      {" 1 POND=W1\n W1   1 9\nW1    2 9\n", "", "Le nom W1 est celui de 2 questions"},
      {" 1 \nW1    1 9\n W1   2 9\nW1    3 9\n$$V\nW1      2\n$$\n", "", "aux positions 1, 2 et 3 : "},
  };
  for (const auto& [pos, sortie, texte] : cas) {
    Ecrire("ENQ.POS", Joindre({"T\n", pos}));
    Ecrire("ENQ.DAT", "123\n");
    Ecrire("ENR.DAT", "");
    EXPECT_EQ(Executer(), sortie.empty() ? Fin::Arret : Fin::Normale) << pos << montre_;
    EXPECT_EQ(Lire("ENR.DAT"), sortie) << pos;
    EXPECT_TRUE(Dit(texte)) << pos << montre_;
  }
}

TEST_F(RunRecodage, TheCountBeforeWeightingIsThatOfTheFilter) {
  const struct {
    std::string_view pos, taille;
    std::size_t lignes;
  } cas[] = {
      // Of four people three are kept, their weights give 150 lines, one in five is written.
      {" 4 POND=PDS INCL SEX=1\n", " 30 ( 3 )", 30},
      {" 4 (40) INCL SEX=1\n", " 3 ( 30 )", 3},
      {" 4 (1) EXCL SEX=1\n", " 1 ( 1 )", 1},
      {" 4 (40) POND=PDS MAX INCL SEX=1\n", " 150 ( 30 )", 150},
      {" 4 (40)\n", " 4 ( 40 )", 4},
  };
  for (const auto& [taille, attendue, lignes] : cas) {
    Ecrire("ENQ.POS", Joindre({"T\n", taille, "SEX   1 2\nPDS   250\n"}));
    Ecrire("ENQ.DAT", "150\n150\n150\n250\n");
    EXPECT_EQ(Executer(), Fin::Normale) << taille << montre_;
    EXPECT_TRUE(Lire("ENR.POS").starts_with(Joindre({"T Recode en ENR\r\n", attendue, "\r\n"}))) << Lire("ENR.POS");
    EXPECT_EQ(Lire("ENR.DAT").size(), 5 * lignes) << taille;
  }
}

TEST_F(RunRecodage, AnOverflowWeighsNothing) {
  Ecrire("ENQ.POS", "T\n 2 POND=PDS MAX\nAAA   1 2 S\nPDS   2 2\n");
  Ecrire("ENQ.DAT", "19\n12\n");
  EXPECT_EQ(Executer({.toutesSelectionnees = false}), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENR.DAT"), "12\r\n12\r\n");
  EXPECT_TRUE(Dit("Depassement de code-max a PDS Ligne")) << montre_;
  // The same of a question that a filter or a VIT reads, once each.
  Ecrire("ENQ.POS", "T\n 2 EXCL PDS=1 + AAA=2\nAAA   1 2 S\nPDS   2 2\n$$V\nPDS     2\n$$\n");
  EXPECT_EQ(Executer({.toutesSelectionnees = false}), Fin::Normale) << montre_;
  const std::size_t dit = montre_.find("Depassement de code-max a PDS Ligne");
  ASSERT_NE(dit, std::string::npos) << montre_;
  EXPECT_EQ(montre_.find("Depassement", dit + 1), std::string::npos) << montre_;
}

TEST_F(RunRecodage, WeightsOfZeroMakeNoFile) {
  Ecrire("ENQ.POS", "T\n 2 POND=PDS INCL AAA=1\nAAA   1 2 S\nPDS   2 2\n");
  Ecrire("ENQ.DAT", "10\n22\n");
  Ecrire("ENR.DAT", "ancien");
  Ecrire("ENR.REC", "ancien rapport");
  EXPECT_EQ(Executer(), Fin::Arret);
  EXPECT_TRUE(Dit("donne un poids nul")) << montre_;
  EXPECT_EQ(Lire("ENR.REC"), "ancien rapport");
  EXPECT_EQ(Lire("ENR.DAT"), "ancien");
}

TEST_F(RunRecodage, AnAlphabeticQuestionCountsWithItsColumns) {
  Ecrire("ENQ.POS", "T\n 1 \nAAA   1 2\nTXT   2L3A\n");
  Ecrire("ENQ.DAT", "1abc\n");
  EXPECT_EQ(Executer({.enFin = true}), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENR.DAT"), "1abc1\r\n") << "the copy stands behind the record, not behind column 999";
}

TEST(Etiquettes, LabelsOfCodesThatBecomeOne) {
  const struct {
    std::vector<std::string> intitules;
    std::string_view reuni;
  } cas[] = {{{}, ""},
             {{"Homme"}, "Homme"},
             {{"Oui", "Non"}, "Oui + Non"},
             {{"15-25 ans", "26-35 ans"}, "15-35 ans"},
             {{"15-25 ans", "25-35 ans", "36-45 ans"}, "15-45 ans"},
             {{"15-25 ans", "36-45 ans"}, "15-25 ans + 36-45 ans"},
             {{"15-25 ans", "26-35"}, "15-25 ans + 26-35"},
             {{"-5-10", "11-12"}, "-5-10 + 11-12"},
             {{"56-65 ans", "66 ans et plus"}, "56-65 ans + 66 ans et"},
             {{"Ouvrier qualifié", "Technicien"}, "Ouvrier qualifié"},
             {{"abcdefghijklm", "nopqrstuv", "x"}, "abcdefghijklm + nopqrstuv"},
             {{"abcdefghijklmnopqrstuvwxyz"}, "abcdefghijklmnopqrstuvwxy"}};
  for (const auto& [intitules, reuni] : cas) EXPECT_EQ(IntituleReuni(intitules), reuni);
}

TEST_F(RunRecodage, LabelsFollowTheirCodes) {
  const std::string_view mod =
      "ENQ\r\n FMT=4 \r\nAGE0   NR\r\nAGE1   15-25 ans\r\nAGE2   26-35 ans\r\nAGE3 S \r\nAGE4 S Vieux\r\nSEX1   "
      "Homme\r\n"
      "SEX2   Femme\r\n**\r\nVEL1   ancien\r\n";
  const struct {
    std::string_view regle, suite, mod, dit;
    bool enFin;
  } cas[] = {
      {"1-2=1/3-4=2", "",
       "AGE0   NR\r\nAGE1   15-35 ans\r\nAGE2 S Vieux\r\nSEX1   Homme\r\nSEX2   Femme\r\n**\r\nVEL1   ancien\r\n",
       "refaits d'après le recodage pour : AGE\r\n"_w, false},
      {"1=2/2=1", "",
       "AGE0   NR\r\nAGE1   26-35 ans\r\nAGE2   15-25 ans\r\nAGE3 S \r\nAGE4 S Vieux\r\nSEX1   Homme\r\nSEX2   "
       "Femme\r\n**\r\nVEL1   ancien\r\n",
       "pour : AGE\r\n", false},
      {"4=1/R=0", "",
       "AGE0   NR + 15-35 ans\r\nAGE1 S Vieux\r\nSEX1   Homme\r\nSEX2   Femme\r\n**\r\nVEL1   ancien\r\n",
       "pour : AGE\r\n", false},
      {"1-2=1/3-4=2", "",
       "AGE0   NR\r\nAGE1   15-25 ans\r\nAGE2   26-35 ans\r\nAGE3 S \r\nAGE4 S Vieux\r\nSEX1   Homme\r\nSEX2   "
       "Femme\r\n"
       "*AG0   NR\r\n*AG1   15-35 ans\r\n*AG2 S Vieux\r\n**\r\nVEL1   ancien\r\n",
       "pour : *AG\r\n", true},
      {"", "$$SEX\nAGE     1\n$$\n",
       "AGE0   NR\r\nAGE1   15-25 ans\r\nAGE2   26-35 ans\r\nAGE3 S \r\nAGE4 S Vieux\r\n**\r\nVEL1   ancien\r\n",
       "une question créée a le même nom : SEX\r\n"_w, false},
  };
  for (const auto& [regle, suite, attendu, dit, enFin] : cas) {
    Ecrire("ENQ.POS", Joindre({"T\n 1 \nAGE   1 4 ", regle, "\nSEX   2 2\n", suite}));
    Ecrire("ENQ.DAT", "11\n");
    Ecrire("ENQ.MOD", mod);
    EXPECT_EQ(Executer({.enFin = enFin}), Fin::Normale) << montre_;
    EXPECT_EQ(Lire("ENR.MOD"), Joindre({"ENQ\r\n FMT=4 \r\n", attendu})) << regle;
    EXPECT_TRUE(Dit(dit)) << montre_;
    Effacer("ENR.MOD");
  }
}

TEST_F(RunRecodage, LabelsOfCodesOfTwoDigitsFollowThem) {
  const struct {
    std::string_view regle, suite, mod, dit;
    bool enFin;
  } cas[] = {
      {"1=75/75=1", "", "DEP1   Ain\r\nDE75   Paris\r\nDET1   un\r\nDE75   det\r\n*DE1   Paris\r\n*D75   Ain\r\n**\r\n",
       "pour : *DE\r\n", true},
      {"40=96", "", "DEP1   Ain\r\nDE75   Paris\r\nDET1   un\r\nDE75   det\r\n**\r\n", "pour : DEP\r\n", false},
      {"75=40", "", "DEP1   Ain\r\nDE40   Paris\r\nDET1   un\r\nDE75   det\r\n**\r\n", "pour : DEP\r\n", false},
      {"", "$$DEP\nSEX     1\n$$\n", "DET1   un\r\nDE75   det\r\n**\r\n", "a le même nom : DEP\r\n"_w, false},
  };
  for (const auto& [regle, suite, attendu, dit, enFin] : cas) {
    Ecrire("ENQ.POS", Joindre({"T\n 1 \nDEP   195 ", regle, "\n", std::string_view(enFin ? "TEL" : "DET"),
                               "   395\nSEX   5 2\n", suite}));
    Ecrire("ENQ.DAT", "75751\n");
    Ecrire("ENQ.MOD",
           "ENQ\r\n FMT=4 \r\nDEP1   Ain\r\nDE75   Paris\r\nDET1   un\r\nDE75   det\r\n**\r\nDE99   perdu\r\n");
    EXPECT_EQ(Executer({.enFin = enFin}), Fin::Normale) << montre_;
    EXPECT_EQ(Lire("ENR.MOD"), Joindre({"ENQ\r\n FMT=4 \r\n", attendu, "DE99   perdu\r\n"})) << regle;
    EXPECT_TRUE(Dit(dit)) << montre_;
    EXPECT_EQ(Dit("peuvent avoir la modalité : DE99\r\n"_w), !regle.empty() && !enFin)
        << "a code that both questions have lost";
    Effacer("ENR.MOD");
  }
}

TEST_F(RunRecodage, NothingThatTheRunReadsIsWrittenOver) {
  Ecrire("ENQ.POS", "T\n 1 \nAAA   1 2 1=2\n");
  Ecrire("ENQ.DAT", "1\r\n");
  Ecrire("ENQ.REC", "recodage d'avant");
  saisie_ = "enq";
  EXPECT_EQ(Executer(), Fin::Arret);
  EXPECT_TRUE(Dit("enq est le g\xE9n\xE9rique d'origine, donnez un autre nom")) << montre_;
  EXPECT_EQ(Lire("ENQ.REC"), "recodage d'avant");
  EXPECT_EQ(Lire("ENQ.DAT"), "1\r\n");

  Ecrire("ENR.DAT", "1\r\n");
  saisie_ = "ENR";
  EXPECT_EQ(Executer({.fichierDonnees = "enr.dat"}), Fin::Arret);
  EXPECT_TRUE(Dit("notez le numero =  70 ")) << montre_;
  EXPECT_EQ(Lire("ENR.DAT"), "1\r\n");

  Ecrire("ENR.POS", "ancien");
  Effacer("ENR.DAT");
  std::filesystem::create_directory(dossier_.Chemin() / "ENR.DAT");
  EXPECT_EQ(Executer(), Fin::Arret) << "a directory stands in the way";
  EXPECT_EQ(Lire("ENR.POS"), "ancien");
}

TEST_F(RunRecodage, HundredPeopleOfWeightFiftyAreReducedToAThousandLines) {
  Ecrire("ENQ.POS", "T\n 100 POND=pds\nPDS   150\nPON   1 9\n");
  std::string donnees;
  for (int i = 0; i < 100; ++i) donnees += "50\n";
  Ecrire("ENQ.DAT", donnees);
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_TRUE(Dit("POND=PDS est prioritaire"));
  EXPECT_TRUE(Dit("en sortie est de  5000 \r\n"));
  EXPECT_TRUE(Dit("il est maintenant de  1000 \r\n"));
  EXPECT_EQ(Lire("ENR.DAT").size(), 4000U);
  EXPECT_TRUE(Lire("ENR.POS").starts_with("T Recode en ENR\r\n 1000 ( 100 )\r\n"));

  Ecrire("ENQ.POS", "T\n 100 MAX POND=ZZZ\nPON   150\n");
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_FALSE(Dit("*** Attention, une")) << "a question PON serves for an unknown name";
  EXPECT_EQ(Lire("ENR.DAT").size(), 20000U);
  EXPECT_TRUE(Lire("ENR.POS").starts_with("T Recode en ENR\r\n 5000 \r\n"));
}

// A VIT and a filter read the new codes, of a question without rule the old ones; values that no code-max allows count
// as 0, and a VIT never takes more columns than it has.
TEST_F(RunRecodage, VitAndFilterReadTheRecodedValues) {
  Ecrire("ENQ.POS",
         "T\n 6 EXCL A=3 & BBB=0\nAAA   1 4 1-2=3\nBBB   2 9\n$$SOM\nAAA    +\nBBB     +\n$$CAS\nAAA     3-5\n"
         "BBB     9 12\nBBB     2\n");
  Ecrire("ENQ.DAT", "19\n4\n2 \n59\n-2\n21\n");
  EXPECT_EQ(Executer({.toutesSelectionnees = false}), Fin::Normale);
  // A filter names the first question that contains it. SOM: 3+9, 4+0, excluded, 0+9 with a warning, 0+2, 3+1;
  // CAS: 12-5, 0, excluded, 12, 1, and -5 which counts as 0.
  EXPECT_EQ(Lire("ENR.DAT"), "3912 7\r\n4  4 0\r\n09 912\r\n02 2 1\r\n31 4 0\r\n");
  EXPECT_TRUE(Dit("***  Depassement de code-max a AAA Ligne 4\r\n"));
  EXPECT_FALSE(Dit("Ligne 5"));
  EXPECT_TRUE(Dit("SOM      3   13\r\nCAS      5   13\r\n")) << montre_;
}

// Whatever stands in a field that keeps its codes, and wherever it stands, only digits up to the code-max come through.
TEST_F(RunRecodage, EveryColumnIsLookedAt) {
  constexpr int kColonnes = 37;
  std::string pos = "T\n 0 \n";
  for (int i = 1; i <= kColonnes; ++i)
    pos += "Q" + std::to_string(10 + i) + (i < 10 ? "   " : "  ") + std::to_string(i) + " 5\n";
  const std::string juste(kColonnes, '5');
  std::string donnees, attendu;
  for (std::size_t i = 0; i < kColonnes; ++i)
    for (const char c : {'6', ' ', '/', ':', '\xFF', '0', '4'}) {
      std::string ligne = juste;
      ligne[i] = c;
      donnees += ligne + "\n";
      ligne[i] = c == '4' ? '4' : '0';
      attendu += ligne + "\r\n";
    }
  Ecrire("ENQ.POS", pos);
  Ecrire("ENQ.DAT", donnees);
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_EQ(Lire("ENR.DAT"), attendu);
  EXPECT_TRUE(Dit("a Q11 Ligne 1\r\n") && Dit("a Q47 Ligne 253\r\n"));
  EXPECT_FALSE(Dit("Ligne 2\r\n")) << "only a code above the code-max is told";
}

// Labels typed in the new generic outlive every further recoding of the same kind, and tables of other people are told.
TEST_F(RunRecodage, WhatStandsThereOfAFormerRecoding) {
  Ecrire("ENQ.POS", "T\n 2 \nAAA   1 2\n");
  Ecrire("ENQ.DAT", "1\n2\n");
  Ecrire("ENQ.MOD", "passe");
  Ecrire("ENR.MOD", "a la main");
  Ecrire("ENR.BRT", "");
  const auto autresBoites = [&] {
    std::string textes;
    for (const std::string& texte : std::exchange(boites_, {}))
      if (texte.find("existe déjà"_w) == std::string::npos && texte.find('?') == std::string::npos) textes += texte;
    return textes;
  };
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_EQ(autresBoites(), "") << "no data were there";
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_EQ(Lire("ENR.MO2") + Lire("ENR.MO3"), "passea la main");
  EXPECT_EQ(autresBoites(), "L'ancienne sauvegarde ENR.MO2 est conservée sous le nom ENR.MO3"_w)
      << "the data are the same";
  Ecrire("ENQ.DAT", "2\n2\n");
  Ecrire("ENR.PEM", "");
  EXPECT_EQ(Executer(), Fin::Normale);
  EXPECT_NE(autresBoites().find("anciennes données, à refaire avant de s'en servir : ENR.BRT, ENR.PEM"_w),
            std::string::npos);
  EXPECT_FALSE(Dit("refaire") || Dit("MO3")) << "the report is that of every recoding";
}

TEST_F(RunRecodage, CancelIsRememberedForTheModalityFile) {
  Ecrire("ENQ.POS", "T\n 1 \nAAA   1 2\n");
  Ecrire("ENQ.DAT", "1\n");
  Ecrire("ENQ.MOD", "un");
  SuiteRecodage suite;
  bouton_ = Reponse::Non;
  EXPECT_EQ(Executer({.suite = &suite}), Fin::Normale);
  EXPECT_EQ(suite.generique, "ENR");
  EXPECT_FALSE(suite.passerModalites);
  EXPECT_FALSE(Fichiers().contains("ENR.MOD"));
  bouton_ = Reponse::Annuler;
  EXPECT_EQ(Executer({.suite = &suite}), Fin::Normale);
  EXPECT_TRUE(suite.passerModalites);
  EXPECT_EQ(Lire("ENR.MOD"), "un");
  Ecrire("ENQ.MOD", "deux");
  bouton_ = Reponse::Non;
  EXPECT_EQ(Executer({.suite = &suite}), Fin::Normale);
  EXPECT_EQ(Lire("ENR.MOD") + Lire("ENR.MO2"), "deuxun");
  EXPECT_EQ(boites_.size(), 2U);
  Ecrire("ENQ.POS", "T\n 1 \nAAA   1 2 x\n");
  EXPECT_EQ(Executer({.suite = &suite}), Fin::Arret);
  EXPECT_EQ(suite.generique, "ENQ") << "a stopped run keeps the generic";
}

}  // namespace
}  // namespace quelvar
