// Table utilities: the laws that tie a table to its inverse and to its individuals, and a survey to its spreadsheet.
#include <gtest/gtest.h>

#include <random>

#include "capture/apercu/import.h"
#include "capture/import_csv.h"
#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "core/texte/nombres.h"
#include "support/programme.h"
#include "utilities/exportcsv/exportcsv.h"
#include "utilities/gendat.h"
#include "utilities/inversion.h"

namespace quelvar::utilities {
namespace {

class RunTableaux : public essai::RunDeProgramme {
 protected:
  // A table of that many rows and columns, its cells below 200, in `blocs` blocks.
  std::vector<int> EcrireTableau(int lignes, int colonnes, int blocs, unsigned graine) const {
    std::mt19937 hasard(graine);
    std::vector<int> cellules;
    std::string brt;
    for (int i = 0; i < lignes * blocs; ++i) {
      brt += CadreGauche("L" + std::to_string(i % lignes + 1), 4);
      for (int j = 0; j < colonnes; ++j) {
        cellules.push_back(static_cast<int>(hasard() % 3 == 0 ? 0 : hasard() % 200));
        brt += EntierDroit(cellules.back(), 4);
      }
      brt += "ligne " + std::to_string(i % lignes + 1) + "\r\n";
    }
    std::string mod =
        "AGE/SEX/VIL\r\n LIGN=" + std::to_string(lignes) + " COL=" + std::to_string(colonnes) + " FMT=4 \r\n";
    for (int j = 0; j < colonnes; ++j)
      mod += CadreGauche("C" + std::to_string(j + 1), 4) + "   colonne " + std::to_string(j + 1) + "\r\n";
    Ecrire("ENQ.BRT", brt);
    Ecrire("ENQ.MOD", mod);
    return cellules;
  }
};

TEST_F(RunTableaux, InvertedTwiceATableIsItselfUnderAThirdGeneric) {
  for (const auto& [lignes, colonnes] : {std::pair(1, 1), std::pair(3, 5), std::pair(12, 2)}) {
    EcrireTableau(lignes, colonnes, 1, 7);
    Contexte suivant = contexte_;
    for (const std::string nouveau : {"ENR", "ENS"}) {
      std::string recu;
      ASSERT_EQ(Inverser(suivant, {.nouveau = &recu, .remplacer = true}), Fin::Normale);
      ASSERT_EQ(recu, nouveau);
      suivant.generique = recu;
    }
    EXPECT_EQ(Lire("ENS.BRT"), Lire("ENQ.BRT"));
    const std::string mod = Lire("ENS.MOD");
    const std::string ancien = Lire("ENQ.MOD");
    const auto noms = [](const std::string& texte) { return texte.substr(texte.find("C1  ")); };
    EXPECT_EQ(noms(mod), noms(ancien));
  }
}

TEST_F(RunTableaux, TheIndividualsOfGendatCountBackToTheTable) {
  for (const auto& [lignes, colonnes, blocs] :
       {std::tuple(1, 1, 1), std::tuple(3, 4, 1), std::tuple(12, 9, 1), std::tuple(2, 101, 1), std::tuple(3, 2, 4)}) {
    const std::vector<int> cellules = EcrireTableau(lignes, colonnes, blocs, 11);
    ASSERT_EQ(Gendat(contexte_, {}), Fin::Normale);
    const FichierPos pos = LirePos(dossier_.Chemin() / "ENQ.POS");
    ASSERT_EQ(pos.questions.size(), blocs > 1 ? 3U : 2U);
    EXPECT_EQ(pos.questions[0].nom, "AGE");
    EXPECT_EQ(pos.questions[1].nom, "SEX");
    std::vector<Champ> champs;
    for (Question question : pos.questions) {
      champs.push_back(ChampDe(question));
      if (question.codeMax == 999) continue;
      EXPECT_LE(question.codeMax, 99);
    }
    std::vector<int> comptes(cellules.size(), 0);
    std::int64_t individus = 0;
    LecteurLignes lecteur(dossier_.Chemin() / "ENQ.DAT");
    for (std::string_view ligne; lecteur.Lire(ligne); ++individus) {
      const int i = LireChampInterieur(ligne.data(), champs[0]) - 1;
      const int j = LireChampInterieur(ligne.data(), champs[1]) - 1;
      const int k = blocs > 1 ? LireChampInterieur(ligne.data(), champs[2]) - 1 : 0;
      ++comptes.at(static_cast<std::size_t>((k * lignes + i) * colonnes + j));
    }
    EXPECT_EQ(comptes, cellules) << lignes << " x " << colonnes << " x " << blocs;
    EXPECT_EQ(pos.taille.individus, individus);
  }
}

// A table that can't be taken for what it says is refused, and its files stay.
TEST_F(RunTableaux, ATableWithoutAllItsNamesIsRefused) {
  const std::string noms = "A      un\r\nB      deux\r\n";
  const std::string trois = "L1    1  2  3\r\nL2    4  5  6\r\n";
  struct Essai {
    std::string parametres, brt;
    std::string_view inversion, gendat;  // what each says; empty when it runs
  };
  const std::vector<Essai> essais = {
      {" JMAX=3 FMT=3", trois, "annonce 3 colonnes et nomme 2 modalités"_w,
       "annonce 3 colonnes et nomme 2 modalités"_w},
      {" FMT=3", trois, "derrière la dernière des 2 colonnes nommées"_w,
       "derrière la dernière des 2 colonnes nommées"_w},
      {" COL=2 FMT=3", trois, "", ""},                                  // labels that are numbers
      {" FMT=3", "L1    1  2100\r\nL2    4  5200\r\n", "", ""},         // labels that are numbers
      {" LIGN=2 COL=4 FMT=3", "L1    1  2\r\nL2    4  5\r\n", "", ""},  // COL= counts the rows too
      {" FMT=3", "L1    1  2\r\n      4  5\r\n", "ligne 2, le nom \"    \" n'est pas possible", ""},
      {" FMT=3", "L1    1  2\r\n** x  4  5\r\n", "ligne 2, le nom \"** x\" n'est pas possible", ""},
  };
  bouton_ = Reponse::Oui;
  for (const Essai& essai : essais) {
    for (const char* reste : {"ENR.BRT", "ENR.MOD", "ENQ.DAT", "ENQ.POS"}) Effacer(reste);
    Ecrire("ENQ.BRT", essai.brt);
    Ecrire("ENQ.MOD", "ENQ\r\n" + essai.parametres + "\r\n" + noms);
    EXPECT_EQ(Inverser(contexte_, {}), essai.inversion.empty() ? Fin::Normale : Fin::Arret) << essai.brt;
    EXPECT_TRUE(Dit(essai.inversion)) << montre_;
    EXPECT_EQ(Existe("ENR.MOD"), essai.inversion.empty());
    EXPECT_EQ(Gendat(contexte_, {}), essai.gendat.empty() ? Fin::Normale : Fin::Arret) << essai.brt;
    EXPECT_TRUE(Dit(essai.gendat)) << montre_;
  }
}

TEST_F(RunTableaux, CellsThatAreNoNumbersAndShortRowsAreTold) {
  Ecrire("ENQ.MOD", "ENQ\r\n COL=2 FMT=3\r\nA      un\r\nB      a**b\r\n");
  Ecrire("ENQ.BRT", "L1    1abc\r\nL1  1,5   \r\nL3    4\r\n");
  const std::string_view mots =
      "*** Attention : cellules qui ne sont pas des nombres, lues jusqu'au premier signe de trop ou comptées pour 0 : "
      "2 "
      "la première à la ligne 1, colonne 2 (abc)"_w;
  const std::string_view courtes =
      "*** Attention : lignes plus courtes que leurs cellules, dont ce qui manque compte pour 0 : 1 la première est la "
      "ligne 3"_w;
  ASSERT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(Dit(mots) && Dit(courtes)) << montre_;
  EXPECT_EQ(Lire("ENQ.DAT"), "11\r\n21\r\n31\r\n31\r\n31\r\n31\r\n");
  ASSERT_EQ(Inverser(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(Dit(mots) && Dit(courtes) && Dit("lignes de même nom, que rien ne distinguera plus en colonnes : L1"_w));
  EXPECT_EQ(Inverser(contexte_, {.trg = true}), Fin::Arret);
  EXPECT_TRUE(Dit("finirait la liste des points"));
}

TEST_F(RunTableaux, WhatANewTableOrNewDataDoNotKeepIsTold) {
  const auto dit = [&](std::string_view texte) {
    return std::any_of(boites_.begin(), boites_.end(),
                       [&](const std::string& boite) { return boite.find(texte) != std::string::npos; });
  };
  Ecrire("ENQ.MOD", "AGE/AGE bis\r\n LIGN=4 LSUP=1 FMT=2\r\nA    S un\r\nB      deux\r\n");
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\nL3   5 6\r\nL4   7 8\r\n");
  ASSERT_EQ(Inverser(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(dit("1 colonnes devenues lignes, 1 lignes devenues colonnes"));
  ASSERT_EQ(Inverser(contexte_, {.trg = true}), Fin::Normale);
  EXPECT_TRUE(dit("les 3 premières des 4 lignes"_w));
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2  -3 4\r\nL3   5 6\r\nL4   7 8\r\n");
  EXPECT_EQ(Inverser(contexte_, {.trg = true}), Fin::Arret);
  EXPECT_TRUE(Dit("colonne 1, une cellule négative n'a pas de pourcentage"_w));
  Ecrire("ENQ.BRT", "L1   1 2\r\nL2   3 4\r\nL3   5 6\r\nL4   7 8\r\n");
  ASSERT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(dit("Deux questions portent le nom AGE"));
  for (const char* taille : {" 35 ", " 37 "}) {
    Ecrire("ENQ.POS", Joindre({"ENQ\r\n", std::string(taille), "\r\nAGE   1 4\r\n"}));
    ASSERT_EQ(ExporterCsv(contexte_, {}), Fin::Normale);
    EXPECT_TRUE(dit(Joindre({"annonce", std::string(taille), "individus et ENQ.DAT en a 36"})));
  }
}

TEST_F(RunTableaux, IndividualsAreNotReplacedUnasked) {
  EcrireTableau(2, 2, 1, 3);
  Ecrire("ENQ.DAT", "enquete\r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nAGE   1 9\r\n");
  const auto avant = Fichiers();
  bouton_ = Reponse::Non;
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Arret);
  EXPECT_EQ(Fichiers(), avant);
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO2"), avant.at("ENQ.POS"));
  EXPECT_EQ(Lire("ENQ.DA2"), avant.at("ENQ.DAT"));
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO3"), avant.at("ENQ.POS")) << "a second run keeps what the first one saved";
}

TEST_F(RunTableaux, ASpreadsheetIsNotReplacedUnasked) {
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

TEST_F(RunTableaux, ANewGenericThatExistsIsNotWrittenOver) {
  EcrireTableau(2, 2, 1, 3);
  Ecrire("ENR.DAT", "une autre enquete\r\n");
  std::string recu;
  EXPECT_EQ(Inverser(contexte_, {.nouveau = &recu}), Fin::Normale);
  EXPECT_EQ(recu, "ENS");  // the box proposes a free one
  saisie_ = "enr.pos";
  bouton_ = Reponse::Non;
  EXPECT_EQ(Inverser(contexte_, {}), Fin::Arret);
  saisie_ = "ENQ";
  bouton_ = Reponse::Oui;
  EXPECT_EQ(Inverser(contexte_, {}), Fin::Arret);
  EXPECT_FALSE(Existe("ENR.MOD"));
}

TEST_F(RunTableaux, ADiskWithoutRoomLeavesNoHalfTable) {
  EcrireTableau(300, 300, 1, 3);
  const auto avant = Fichiers("ENQ.prt");
  const essai::DisquePlein disque(100000);
  EXPECT_EQ(Inverser(contexte_, {}), Fin::Arret);
  EXPECT_TRUE(Dit("ERREUR NUMERO = 61 "));
  EXPECT_EQ(Gendat(contexte_, {}), Fin::Arret);
  EXPECT_EQ(Fichiers("ENQ.prt"), avant);
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

TEST_F(RunTableaux, ASurveyExportedAndImportedAgainIsTheSame) {
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
TEST_F(RunTableaux, UnderLabelsTheChoicesBringTheCodesBack) {
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
TEST_F(RunTableaux, WithItsChoicesAnySurveyComesBackWhole) {
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

TEST_F(RunTableaux, WhatTwoNamesOrTwoMarginsLeaveInDoubtIsSaid) {
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
TEST_F(RunTableaux, NoTextIsCutByAnotherSeparatorThanItsOwn) {
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
TEST_F(RunTableaux, TheLabelOfATwoDigitCodeIsThatOfItsQuestion) {
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

TEST_F(RunTableaux, WhatTheSpreadsheetCannotTellIsSaid) {
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

TEST_F(RunTableaux, ARealSurveyExportedAndImportedAgainIsTheSame) {
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
