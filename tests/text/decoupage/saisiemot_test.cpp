#include <gtest/gtest.h>

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "support/programme.h"
#include "text/decoupage/apercu.h"
#include "text/decoupage/liste.h"
#include "text/decoupage/saisiemot_options.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

std::string Code(Codeur& codeur, std::string_view mot) {
  const auto code = codeur.Coder(CadreGauche(mot, 10));
  return {code.data(), code.size()};
}

TEST(Codeur, TheRunningNumberTakesThePlaceOfTheLastCharacters) {
  Codeur codeur;
  EXPECT_EQ(Code(codeur, "travail"), "trav");
  for (int i = 1; i <= 1000; ++i) {
    const std::string numero = Nombre(i);
    EXPECT_EQ(Code(codeur, "tra" + numero), std::string("trav").substr(0, 4 - numero.size()) + numero);
  }
  EXPECT_EQ(Code(codeur, "tr"), "tr  ") << "three other first columns";
  EXPECT_EQ(Code(codeur, "tr a"), "tr 1");
}

class RunTexte : public essai::RunDeProgramme {
 protected:
  Fin Decouper(std::string_view texte, const OptionsSaisieMot& options) {
    Ecrire("ENQ.TXT", texte);
    return SaisieMot(contexte_, options);
  }
};

TEST_F(RunTexte, AStopLeavesTheFormerFiles) {
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nSEX   1 2\r\n");
  Ecrire("ENQ.DAT", "1mot mot       $$\r\n");
  Ecrire("ENQ.TR1", "ancien\r\n");
  Ecrire("ENQ.TXT", "");
  const auto avant = Fichiers("ENQ.IMP");
  const std::pair<std::string_view, std::string_view> cas[] = {
      {"", "*** Le fichier ENQ.TXT est vide"},
      {"1\n\n1 a\n", "ARRET DU AUX ERREURS RENCONTREES"},
      {"12 sans fin", "ARRET : MANQUE ETOILE FINALE"},
      {"123 a\nb\nc*\n", "*** ERREUR : PLUS DE  2  LIGNES PAR INDIVIDU"},
      {"1*\n2*\n", "Enregistrement incomplet à la ligne"_w}};
  for (const auto& [texte, dit] : cas) {
    OptionsSaisieMot options;
    options.position = 3;
    options.lignesMax = 2;
    EXPECT_EQ(Decouper(texte, options), Fin::Arret) << texte;
    EXPECT_TRUE(Dit(dit)) << montre_;
    Ecrire("ENQ.TXT", "");
    EXPECT_EQ(Fichiers("ENQ.IMP"), avant) << texte;
  }
}

TEST_F(RunTexte, AUtf8TextIsConvertedOrRefusedNeverReadWrong) {
  OptionsSaisieMot options;
  options.position = 1;
  bouton_ = Reponse::Non;
  EXPECT_EQ(Decouper("1\xC3\xA9t\xC3\xA9*\n", options), Fin::Arret);
  EXPECT_TRUE(Dit("*** Arrêt du programme : le fichier ENQ.TXT est en UTF-8"_w));
  EXPECT_FALSE(Existe("ENQ.DAT"));
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Decouper("1\xC3\xA9t\xC3\xA9 \xE2\x98\x83*\n", options), Fin::Normale);
  EXPECT_TRUE(Dit("   1 ?            1 été       "_w)) << montre_;
  EXPECT_TRUE(Dit("*** Attention : 1 caractère(s) de ENQ.TXT"_w));
  EXPECT_NE(boites_.back().find(
                "UTF-8 : 3 lettre(s) y occupent plusieurs caractères, la première à la ligne 1.\r\nIl va être "
                "converti"_w),
            std::string::npos);
}

TEST_F(RunTexte, AUtf16TextIsConvertedWithItsMarkOrWithout) {
  using namespace std::string_view_literals;
  OptionsSaisieMot options;
  options.position = 1;
  for (const std::string_view texte : {"\xFF\xFE"
                                       "1\0\xE9\0t\0\xE9\0 \0\xAC\x20*\0\r\0\n\0"sv,
                                       "\xFE\xFF\0"
                                       "1\0\xE9\0t\0\xE9\0 \x20\xAC\0*\0\r\0\n"sv,
                                       "1\0\xE9\0t\0\xE9\0 \0\xAC\x20*\0\r\0\n\0"sv}) {
    bouton_ = Reponse::Oui;
    EXPECT_EQ(Decouper(texte, options), Fin::Normale) << montre_;
    EXPECT_TRUE(Dit("   1 €            1 été"_w)) << montre_;
    EXPECT_TRUE(ApercevoirTexte(contexte_).texte.ends_with("1été €*\r\n"_w));
    bouton_ = Reponse::Non;
    EXPECT_EQ(Decouper(texte, options), Fin::Arret);
    EXPECT_TRUE(Dit("ENQ.TXT est en UTF-16"));
  }
}

TEST_F(RunTexte, LinesThatEndInACarriageReturnAloneAreRefused) {
  EXPECT_EQ(Decouper("1un*\r1deux*\r", {.position = 1}), Fin::Arret);
  EXPECT_TRUE(Dit("finissent par un retour chariot seul"));
}

TEST_F(RunTexte, TheHeadOfAUtf8TextIsShownAsItWillBeRead) {
  Ecrire("ENQ.TXT",
         "\xEF\xBB\xBF"
         "1\xC3\xA9t\xC3\xA9*\r\n2oui*\r\n");
  EXPECT_TRUE(ApercevoirTexte(contexte_).texte.ends_with("1été*\r\n2oui*\r\n"_w));
}

TEST_F(RunTexte, ALongThemeIsListedAsTheTextHasIt) {
  OptionsSaisieMot options;
  options.position = 1;
  options.themes = true;
  EXPECT_EQ(Decouper("1$environnement*\n", options), Fin::Normale);
  EXPECT_TRUE(Dit("\r\n$environne 1\r\n")) << montre_;
  EXPECT_TRUE(Lire("ENQ.DAT").starts_with("1_env_environne$$"));
}

TEST_F(RunTexte, QuestionsBeyondTheCharacteristicsAreNamedInABoxAndKept) {
  const std::string ancien = "ENQ\r\n 1 \r\nSEX   1 2\r\nAGE   2 9\r\n";
  Ecrire("ENQ.POS", ancien);
  EXPECT_EQ(Decouper("1un*\n", {.position = 1}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 1 \r\nSEX   1 2\r\n");
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_TRUE(boites_[0].ends_with("non reprise(s) : AGE. L'ancien fichier sera conservé sous le nom ENQ.PO2"_w));
  EXPECT_EQ(Lire("ENQ.PO2"), ancien);
  EXPECT_EQ(Decouper("1un*\n", {.position = 1}), Fin::Normale);
  EXPECT_FALSE(Existe("ENQ.PO3")) << "nothing is left out of the new one";
}

TEST_F(RunTexte, WhatIsNotTakenOfTheFormerPositionsIsToldAndKept) {
  const struct {
    std::string pos;
    std::string_view dit;  // nothing: not kept either
  } cas[] = {
      {"ENQ\r\n 1 \r\nSEX   1 2\r\n$$VIT\r\nSEX1 2\r\n$$\r\n",
       "2 ligne(s) de ENQ.POS derrière les questions, non reprise(s) : à partir de la ligne 4, $$VIT."_w},
      {"ENQ\r\n 1 \r\nSEX   1 2\r\n**\r\n\r\nnotes\r\n",
       "1 ligne(s) de ENQ.POS derrière les questions, non reprise(s) : à partir de la ligne 6, notes."_w},
      {"ENQ\r\n 1 FILTRE=SEX\r\nSEX   1 2\r\n", "consignes de la ligne 2 de ENQ.POS, non reprises : 1 FILTRE=SEX."},
      {"ENQ\r\n 1 \r\nSEX   1 2\r\n**\r\n\r\n", ""},
  };
  for (const auto& [pos, dit] : cas) {
    Ecrire("ENQ.POS", pos);
    boites_.clear();
    EXPECT_EQ(Decouper("1un*\n", {.position = 1}), Fin::Normale);
    EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 1 \r\nSEX   1 2\r\n");
    ASSERT_EQ(boites_.size(), dit.empty() ? 0U : 1U) << pos;
    EXPECT_EQ(Existe("ENQ.PO2"), !dit.empty()) << pos;
    if (dit.empty()) continue;
    EXPECT_NE(boites_[0].find(Joindre({dit, " L'ancien fichier sera conservé sous le nom ENQ.PO2"_w})),
              std::string::npos)
        << boites_[0];
    EXPECT_EQ(Lire("ENQ.PO2"), pos);
    std::filesystem::remove(contexte_.repertoire / "ENQ.PO2");
  }
}

TEST_F(RunTexte, StarsAmongTheCharacteristicsAreToldAndKeepTheirPlace) {
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nSEX   1 2\r\n");
  EXPECT_EQ(Decouper("123bon*\n45*\n6*oui non*\n", {.position = 3}), Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_TRUE(boites_[0].starts_with("*** Attention : 2 ligne(s) de ENQ.TXT")) << boites_[0];
  EXPECT_NE(boites_[0].find("(positions 1 à 3), la première à la ligne 2 "_w), std::string::npos) << boites_[0];
  EXPECT_TRUE(Dit(boites_[0] + "\r\nNombre de lignes lues"));
  EXPECT_TRUE(Lire("ENQ.DAT").starts_with("45*NR  NR        $$"));
  EXPECT_NE(Lire("ENQ.DAT").find("6*oui  ui        $$"), std::string::npos);
}

TEST_F(RunTexte, ADataFileThatHoldsNoWordsIsNotReplacedUnasked) {
  Ecrire("ENQ.DAT", "112\r\n");
  OptionsSaisieMot options;
  options.position = 1;
  bouton_ = Reponse::Non;
  EXPECT_EQ(Decouper("1un*\n", options), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.DAT"), "112\r\n");
}

// The answers of the input boxes, one after the other, and "Oui" to the box that asks for another one when it is told.
class RunQuestions : public RunTexte {
 protected:
  Fin Repondre(std::vector<std::string> reponses, bool encore, const OptionsSaisieMot& options) {
    std::reverse(reponses.begin(), reponses.end());
    dialogue_.saisir = [reponses](std::string_view, std::string_view) mutable {
      if (reponses.empty()) return std::string();
      std::string reponse = std::move(reponses.back());
      reponses.pop_back();
      return reponse;
    };
    bouton_ = encore ? Reponse::Oui : Reponse::Non;
    return Decouper("12un deux*\n", options);
  }
};

TEST_F(RunQuestions, AnAnswerThatCannotStandIsAskedAgainOrStopsTheRun) {
  const OptionsSaisieMot options{.position = 2};
  const OptionsSaisieMot stimulus{.position = 1, .mode = ModeStimulus::FinDeMot};
  const struct {
    OptionsSaisieMot options;
    std::vector<std::string> fausses;
    std::string_view dit;
  } cas[] = {
      {options, {"SEX", "abc", "AGE", "3"}, "*** Arrêt du programme : Le code-maximum de la question SEX doit être"_w},
      {options, {"SEX", ""}, "Le code-maximum de la question SEX doit être un nombre entier de 1 à 99, et non \"\""_w},
      {options, {"SEX", "-1"}, "et non \"-1\""},
      {options, {"SEX", "0"}, "et non \"0\""},
      {options, {"SEX", "100"}, "et non \"100\""},
      {options, {"SEX", "2", "SEXE", "3"}, "Le nom SEX de la question en position 2 est déjà celui"_w},
      {options, {"$$"}, "Le nom $$ de la question en position 1 est la marque de fin"},
      {stimulus, {"STI", "2"}, "Le nom STI de la question en position 1 est déjà celui"_w},
      {stimulus, {"SEX", "2", "deux"}, "Le nombre de stimulus doit être un nombre entier de 1 à 99, et non \"deux\""_w},
  };
  for (const auto& [demande, fausses, dit] : cas) {
    EXPECT_EQ(Repondre(fausses, false, demande), Fin::Arret) << dit;
    EXPECT_TRUE(Dit(dit)) << montre_;
    EXPECT_FALSE(Existe("ENQ.POS"));
  }
  EXPECT_EQ(Repondre({"SEX", "x", "2", "SEX", "AGE", "9"}, true, options), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 2 \r\nSEX   1 2\r\nAGE   2 9\r\n");
}

TEST_F(RunTexte, TheCommandHoldsAPlaceForEachAnswer) {
  const OptionsSaisieMot options{.position = 2, .mode = ModeStimulus::Caracteristique, .positionStimulus = 2};
  Ecrire("ENQ.TXT", "11\xC3\xA9*\n");
  EXPECT_EQ(
      CommandeDuDecoupage(contexte_, options),
      "quelvar-batch --reponse Oui --reponse NOM1 --reponse MAX1 --reponse STIMULUS saisiemot ENQ position=2 mode=3 "
      "stimulus=2");
  Ecrire("ENQ.TXT", "11un*\n");
  Ecrire("ENQ.DAT", "112\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nSEX   1 2\r\n");
  EXPECT_EQ(CommandeDuDecoupage(contexte_, options),
            "quelvar-batch --reponse Oui --reponse STIMULUS saisiemot ENQ position=2 mode=3 stimulus=2");
  saisie_ = "STIMULUS";
  bouton_ = Reponse::Non;
  Effacer("ENQ.DAT");
  EXPECT_EQ(SaisieMot(contexte_, options), Fin::Arret) << "a place that nobody has filled stops the run";
}

TEST(RefusDeDecouper, NamesTheStep) {
  EXPECT_EQ(RefusDeDecouper({}), "En étape 1, il faut indiquer une position non nulle"_w);
  OptionsSaisieMot options;
  options.position = 2;
  EXPECT_TRUE(RefusDeDecouper(options).empty());
  options.mode = ModeStimulus::Caracteristique;
  EXPECT_EQ(RefusDeDecouper(options), "En étape 2, il faut indiquer une position non nulle"_w);
  options.positionStimulus = 3;
  EXPECT_FALSE(RefusDeDecouper(options).empty());
}

}  // namespace
}  // namespace quelvar
