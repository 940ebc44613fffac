// A survey and its spreadsheet: what goes out comes back whole, and what a spreadsheet cannot tell is said.
#include "utilities/exportcsv/exportcsv.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "capture/apercu/import.h"
#include "capture/csv/import.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "support/programme.h"

namespace quelvar::utilities {
namespace {

class RunExportCsv : public essai::RunDeProgramme {};

TEST_F(RunExportCsv, ASpreadsheetIsNotReplacedUnasked) {
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nAGE   1 9\r\n");
  Ecrire("ENQ.DAT", "1\r\n");
  Ecrire("ENQ.MOD", "ENQ\r\n\r\n");
  Ecrire("ENQ.CSV", "la source");
  bouton_ = Reponse::Non;
  EXPECT_EQ(ExporterCsv(contexte_, {}), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.CSV"), "la source");
  bouton_ = Reponse::Oui;
  EXPECT_EQ(ExporterCsv(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.CSV"), "AGE\r\n1\r\n");
  EXPECT_EQ(Lire("ENQ.CS2"), "la source");
}

TEST_F(RunExportCsv, ACountOfIndividualsThatIsNotThatOfTheDataIsTold) {
  Ecrire("ENQ.DAT", "1\r\n2\r\n");
  Ecrire("ENQ.MOD", "ENQ\r\n\r\n");
  for (const char* taille : {" 1 ", " 3 "}) {
    Ecrire("ENQ.POS", Joindre({"ENQ\r\n", std::string(taille), "\r\nAGE   1 4\r\n"}));
    boites_.clear();
    ASSERT_EQ(ExporterCsv(contexte_, {}), Fin::Normale);
    const std::string annonce = Joindre({"annonce", std::string(taille), "individus et ENQ.DAT en a 2"});
    EXPECT_TRUE(std::any_of(boites_.begin(), boites_.end(),
                            [&](const std::string& boite) { return boite.find(annonce) != std::string::npos; }));
  }
}

// The codes of every question, line by line.
std::string CodesDe(const Chemin& repertoire) {
  const FichierPos pos = LirePos(repertoire / "ENQ.POS");
  std::string codes;
  LecteurLignes lecteur(repertoire / "ENQ.DAT");
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    for (const Question& question : pos.questions)
      codes += Nombre(LireChampInterieur(ligne.data(), ChampDe(question))) + ' ';
    codes += '\n';
  }
  return codes;
}

TEST_F(RunExportCsv, ASurveyExportedAndImportedAgainIsTheSame) {
  std::mt19937 hasard(5);
  for (int tour = 0; tour < 8; ++tour) {
    std::string pos = "ENQ\r\n 60 \r\n";
    std::vector<int> codesMax;
    int position = 1;
    for (int q = 0; q < 6; ++q) {
      codesMax.push_back(static_cast<int>(hasard() % 3 == 0 ? 10 + hasard() % 85 : 2 + hasard() % 7));
      const std::string nom = "Q" + std::to_string(q) + "X";
      pos += nom + EntierDroit(position, 4) + EntierDroit(codesMax.back(), 2) + " $" + nom +
             " une \"question\"; longue$\r\n";
      position += codesMax.back() > 9 ? 2 : 1;
    }
    std::string dat;
    for (int i = 0; i < 60; ++i, dat += "\r\n")
      for (const int codeMax : codesMax) {
        const int code = i == 0 ? codeMax : static_cast<int>(hasard() % static_cast<unsigned>(codeMax + 1));
        dat += NombreFixe(code, codeMax > 9 ? 2 : 1, 0);
      }
    Ecrire("ENQ.POS", pos);
    Ecrire("ENQ.DAT", dat);
    Ecrire("ENQ.MOD", "ENQ\r\n BRT=0\r\n");
    const std::string codes = CodesDe(dossier_.Chemin());
    ASSERT_EQ(ExporterCsv(contexte_, {.tabulation = tour % 2 == 0, .utf8 = tour % 3 == 0, .codes = true}),
              Fin::Normale);
    Effacer("ENQ.DAT");
    Effacer("ENQ.POS");
    ASSERT_EQ(capture::ImportCsv(contexte_, {}), Fin::Normale) << montre_;
    EXPECT_EQ(CodesDe(dossier_.Chemin()), codes);
    Effacer("ENQ.csv");
    ASSERT_EQ(ExporterCsv(contexte_, {.codes = true}), Fin::Normale);
  }
}

// The labels are texts that a spreadsheet and a list of choices must quote, and those of a question with another's
// code.
TEST_F(RunExportCsv, UnderLabelsTheChoicesBringTheCodesBack) {
  std::mt19937 hasard(8);
  for (int tour = 0; tour < 12; ++tour) {
    std::string pos = "ENQ\r\n 80 \r\n";
    std::string mod = "ENQ\r\n BRT=0\r\n";
    std::vector<int> codesMax;
    int position = 1;
    for (int q = 0; q < 5; ++q) {
      codesMax.push_back(static_cast<int>(hasard() % 3 == 0 ? 10 + hasard() % 85 : 2 + hasard() % 7));
      const std::string nom = "Q" + std::to_string(q) + (q == 1 ? " " : "X");
      pos += Joindre({nom, EntierDroit(position, 4), EntierDroit(codesMax.back(), 2),
                      std::string(q % 2 == 0 ? " $Une = question$" : ""), "\r\n"});
      position += codesMax.back() > 9 ? 2 : 1;
      for (int code = 1; code <= codesMax.back(); ++code)
        if (const auto sorte = hasard() % 5; sorte != 0)
          mod += Joindre({nom.substr(0, code < 36 ? 3 : 2), CodeCaractere(code), "   ",
                          sorte == 1   ? "dit \"oui; non\" | "
                          : sorte == 2 ? "été = #"_w
                          : sorte == 3 ? "nr "
                                       : "Code ",
                          Nombre(sorte == 3 && tour % 3 == 0 ? 2 : code), "\r\n"});
    }
    std::string dat;
    for (int i = 0; i < 80; ++i, dat += "\r\n")
      for (const int codeMax : codesMax)
        dat += NombreFixe(static_cast<int>(hasard() % static_cast<unsigned>(codeMax + 1)), codeMax > 9 ? 2 : 1, 0);
    Ecrire("ENQ.POS", pos);
    Ecrire("ENQ.DAT", dat);
    Ecrire("ENQ.MOD", mod);
    const std::string codes = CodesDe(dossier_.Chemin());
    boites_.clear();
    ASSERT_EQ(ExporterCsv(contexte_, {.tabulation = tour % 2 == 0, .utf8 = tour % 3 == 0, .choix = true}),
              Fin::Normale);
    // "nr 2" of two codes is one text: that, and nothing else, is told.
    const bool confondus = !boites_.empty() && boites_.back().starts_with("Questions dont deux codes");
    for (const char* nom : {"ENQ.DAT", "ENQ.POS", "ENQ.MOD"}) Effacer(nom);
    capture::OptionsImport options;
    options.fichierChoix = "ENQ.IMC";
    ASSERT_EQ(capture::Importer(contexte_, options), Fin::Normale) << montre_;
    const std::string relus = CodesDe(dossier_.Chemin());
    EXPECT_EQ(confondus, tour % 3 == 0);
    EXPECT_EQ(relus == codes, !confondus) << tour;
    const std::vector<Question> questions = LirePos(dossier_.Chemin() / "ENQ.POS").questions;
    ASSERT_EQ(questions.size(), codesMax.size());
    EXPECT_EQ(questions[1].nom, "Q1 ");
    for (std::size_t q = 0; q < codesMax.size(); ++q) EXPECT_EQ(questions[q].codeMax, codesMax[q]);
  }
}

// The lines of the questions in .POS, and every individual as codes and texts.
std::string EnqueteDe(const Chemin& repertoire) {
  const FichierPos pos = LirePos(repertoire / "ENQ.POS");
  std::string texte;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) texte += pos.lignes[i + 2] + '\n';
  LecteurLignes lecteur(repertoire / "ENQ.DAT");
  for (std::string_view ligne; lecteur.Lire(ligne); texte += '\n')
    for (const Question& question : pos.questions)
      if (const Champ champ = ChampDe(question); question.alphabetique)
        texte +=
            CadreGauche(Milieu(ligne, champ.debut + 1, static_cast<std::size_t>(question.codeMax)), question.codeMax);
      else texte += Nombre(LireChampInterieur(ligne.data(), champ)) + ' ';
  return texte;
}

// Questions of texts at either end of their field, of three positions, with names that begin or end with a blank and
// labels shorter than a name: the choices bring the whole survey back, whatever its columns hold.
TEST_F(RunExportCsv, WithItsChoicesAnySurveyComesBackWhole) {
  std::mt19937 hasard(21);
  const auto de = [&](int n) { return static_cast<int>(hasard() % static_cast<unsigned>(n)); };
  const auto parmi = [&](const std::vector<std::string>& choses) { return choses[hasard() % choses.size()]; };
  const std::vector<std::string> textes = {"",  "nr", "12.5",     "\"a\";b", "é | à", "0042", "x;y",
                                           "3", "-1", "2/3/1998", "=1",      "#non",  "Oui"};
  for (int tour = 0; tour < 20; ++tour) {
    std::string pos = "ENQ\r\n 40 \r\n";
    std::string mod = "ENQ\r\n BRT=0\r\n";
    std::vector<std::string> individus(40);
    int position = 1;
    for (int q = 0; q < 7; ++q) {
      const int sorte = de(5);
      const std::string lettre(1, static_cast<char>('A' + q));
      const std::string nom = parmi({lettre + "  ", "  " + lettre, lettre + " 1", "Q1" + lettre});
      const int codeMax = sorte == 0   ? 1 + de(9)
                          : sorte == 1 ? 10 + de(90)
                          : sorte == 2 ? 999
                                       : 6 + de(20);  // of a text its width
      const int largeur = sorte > 2 ? codeMax : LargeurDe(codeMax);
      pos += LigneDeQuestion(nom, position, TexteCodeMax(codeMax),
                             (sorte > 2 ? "A" : "") + parmi({"", " $Un$", " $Une question ; longue$"})) +
             "\r\n";
      position += largeur;
      for (std::string& individu : individus) {
        const std::string texte = DepuisUtf8(parmi(textes));
        individu += sorte == 3   ? CadreGauche(texte, largeur)
                    : sorte == 4 ? CadreDroit(texte, largeur)
                                 : EntierDroit(de(de(2) == 0 ? std::min(codeMax + 1, 5) : codeMax + 1), largeur);
      }
      for (int code = 1; sorte < 3 && code <= std::min(codeMax, 35); code += 1 + de(3))
        mod += Joindre({nom, CodeCaractere(code), "   dit \"", Nombre(code), "; ou\"\r\n"});
    }
    std::string dat;
    for (const std::string& individu : individus) dat += individu + "\r\n";
    for (const bool codes : {false, true}) {
      Ecrire("ENQ.POS", pos);
      Ecrire("ENQ.DAT", dat);
      Ecrire("ENQ.MOD", mod);
      const std::string enquete = EnqueteDe(dossier_.Chemin());
      boites_.clear();
      ASSERT_EQ(
          ExporterCsv(contexte_, {.tabulation = tour % 2 == 0, .utf8 = tour % 3 == 0, .codes = codes, .choix = true}),
          Fin::Normale);
      std::erase_if(boites_, [](const std::string& boite) { return boite.starts_with("Le fichier"); });
      EXPECT_TRUE(boites_.empty()) << boites_.front();
      for (const char* nom : {"ENQ.DAT", "ENQ.POS", "ENQ.MOD"}) Effacer(nom);
      capture::OptionsImport options;
      options.fichierChoix = "ENQ.IMC";
      ASSERT_EQ(capture::Importer(contexte_, options), Fin::Normale) << montre_;
      EXPECT_EQ(EnqueteDe(dossier_.Chemin()), enquete) << tour << "\n" << Lire("ENQ.IMC");
      for (const char* nom : {"ENQ.csv", "ENQ.IMC"}) Effacer(nom);
    }
  }
}

TEST_F(RunExportCsv, WhatTwoNamesOrTwoMarginsLeaveInDoubtIsSaid) {
  const auto exporter = [&](std::string_view pos, std::string_view mod) {
    Ecrire("ENQ.POS", Joindre({"ENQ\r\n 2 \r\n", pos}));
    Ecrire("ENQ.MOD", Joindre({"ENQ\r\n\r\n", mod}));
    boites_.clear();
    return ExporterCsv(contexte_, {.choix = true});
  };
  Ecrire("ENQ.DAT", "1a \r\n2 b\r\n");
  EXPECT_EQ(exporter("A     1 2\r\n  A   2 3\r\n", ""), Fin::Arret);
  EXPECT_NE(montre_.find("Le nom A est celui de 2 questions, aux positions 1 et 2"), std::string::npos) << montre_;
  EXPECT_EQ(exporter("A     1 2\r\n", "A  1   un\r\nA  1   autre\r\n"), Fin::Arret);
  EXPECT_NE(montre_.find("Le nom A  1 est celui de 2 modalit"), std::string::npos) << montre_;
  EXPECT_FALSE(Existe("ENQ.csv"));
  // The same label twice, or another one behind the list, leaves no doubt.
  EXPECT_EQ(exporter("A     1 2\r\n", "A  1   un\r\nA  1   un\r\n**\r\nA  1   autre\r\n"), Fin::Normale);
  EXPECT_TRUE(boites_.empty());
  EXPECT_EQ(exporter("A     1 2\r\nLET   2 2A\r\n", ""), Fin::Normale);
  ASSERT_FALSE(boites_.empty());
  EXPECT_TRUE(boites_.back().ends_with("LET. Une importation remettra tous leurs textes au début du champ"_w));
  EXPECT_EQ(exporter("A     1 2 1=2\r\n", "A  1 S un\r\n"), Fin::Normale);
  ASSERT_FALSE(boites_.empty());
  EXPECT_TRUE(boites_.back().ends_with("pas : les règles et les marques de questions, les marques de modalités"_w));
}

// A spreadsheet of one column, or of two, whose texts hold what separates the cells of others.
TEST_F(RunExportCsv, NoTextIsCutByAnotherSeparatorThanItsOwn) {
  for (const std::string_view questions :
       {"LEC   1 2 $Lecture, presse$\r\n", "LEC   1 2 $Lecture; presse$\r\nMUS   2 2\r\n"}) {
    Ecrire("ENQ.POS", Joindre({"ENQ\r\n 4 \r\n", questions}));
    Ecrire("ENQ.DAT", "11\r\n12\r\n21\r\n22\r\n");
    Ecrire("ENQ.MOD", "ENQ\r\n\r\nLEC1   oui, souvent; trop\r\nLEC2   non| jamais, ou peu; rien\r\n");
    const std::string enquete = EnqueteDe(dossier_.Chemin());
    ASSERT_EQ(ExporterCsv(contexte_, {.tabulation = true, .choix = true}), Fin::Normale);
    for (const char* nom : {"ENQ.DAT", "ENQ.POS", "ENQ.MOD"}) Effacer(nom);
    capture::OptionsImport options;
    options.fichierChoix = "ENQ.IMC";
    ASSERT_EQ(capture::Importer(contexte_, options), Fin::Normale) << montre_;
    EXPECT_EQ(EnqueteDe(dossier_.Chemin()), enquete);
    for (const char* nom : {"ENQ.csv", "ENQ.IMC"}) Effacer(nom);
  }
}

// "NB36" is the code 36 of NB3 as well as its code 6, and the code 36 of NBA: its place in the list tells.
TEST_F(RunExportCsv, TheLabelOfATwoDigitCodeIsThatOfItsQuestion) {
  Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nNB3   140\r\nNBA   340\r\n");
  Ecrire("ENQ.DAT", " 636\r\n3635\r\n3737\r\n");
  Ecrire("ENQ.MOD", "ENQ\r\n\r\nNB35   cinq\r\nNB36   six\r\nNB3Z\r\nNB36   trente-six\r\nNBAZ   Z\r\nNB36   de A\r\n");
  ASSERT_EQ(ExporterCsv(contexte_, {}), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENQ.csv"), "NB3;NBA\r\nsix;de A\r\ntrente-six;Z\r\n37;37\r\n");
  Effacer("ENQ.csv");
  Ecrire("ENQ.MOD", "ENQ\r\n\r\nNB36   de qui\r\n");
  boites_.clear();
  ASSERT_EQ(ExporterCsv(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.csv"), "NB3;NBA\r\nde qui;de qui\r\nde qui;35\r\n37;37\r\n");
  EXPECT_TRUE(
      boites_[0].starts_with("Noms de modalités qui peuvent être ceux de plusieurs questions : 1, le premier NB36"_w));
}

TEST_F(RunExportCsv, WhatTheSpreadsheetCannotTellIsSaid) {
  Ecrire("ENQ.POS", "ENQ\r\n 4 \r\nSEX   1 2\r\nNBX   212\r\n");
  Ecrire("ENQ.DAT", "112\r\n3-1\r\nA  \r\n 13\r\n");
  Ecrire("ENQ.MOD", "ENQ\r\n\r\nSEX1   Oui\r\nSEX2   Oui\r\n");
  for (const bool codes : {false, true}) {
    boites_.clear();
    ASSERT_EQ(ExporterCsv(contexte_, {.codes = codes}), Fin::Normale);
    EXPECT_EQ(Lire("ENQ.csv"),
              codes ? "SEX;NBX\r\n1;12\r\n0;0\r\n0;0\r\n0;0\r\n" : "SEX;NBX\r\nOui;12\r\nnr;nr\r\nnr;nr\r\nnr;nr\r\n");
    std::erase_if(boites_, [](const std::string& boite) { return boite.starts_with("Le fichier"); });
    ASSERT_EQ(boites_.size(), codes ? 1U : 2U);
    EXPECT_EQ(boites_[0],
              Joindre({"Valeurs qui ne sont pas des codes de leur question, exportées sous la forme "_w,
                       std::string(codes ? "0" : "nr"), " : 4, la première : individu 2, question SEX (3)"_w}));
    EXPECT_TRUE(codes || boites_[1].find("SEX (codes 1 et 2 : Oui)") != std::string::npos);
  }
}

// Names, code-maxes and labels of the questions, wherever their fields stand.
std::string QuestionsDe(const Chemin& repertoire) {
  std::string texte;
  for (const Question& question : LirePos(repertoire / "ENQ.POS").questions)
    texte += Joindre({question.nom, " ", Nombre(question.codeMax), " ", question.intitule, "\n"});
  return texte;
}

TEST_F(RunExportCsv, ARealSurveyExportedAndImportedAgainIsTheSame) {
  std::filesystem::copy_file(QUELVAR_EXEMPLES "/loisirs/LOISIRS.CSV", dossier_.Chemin() / "ENQ.CSV");
  Ecrire("ENQ.MOD", "ENQ\r\n BRT=0\r\n");
  ASSERT_EQ(capture::ImportCsv(contexte_, {}), Fin::Normale) << montre_;
  const std::string codes = CodesDe(dossier_.Chemin());
  const std::string questions = QuestionsDe(dossier_.Chemin());
  EXPECT_GT(codes.size(), 300000U);
  for (const bool utf8 : {false, true}) {
    ASSERT_EQ(ExporterCsv(contexte_, {.tabulation = utf8, .utf8 = utf8, .codes = true}), Fin::Normale);
    ASSERT_EQ(capture::ImportCsv(contexte_, {}), Fin::Normale) << montre_;
    EXPECT_TRUE(CodesDe(dossier_.Chemin()) == codes);
    EXPECT_EQ(QuestionsDe(dossier_.Chemin()), questions);
  }
}

}  // namespace
}  // namespace quelvar::utilities
