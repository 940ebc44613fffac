// The import of any table: choices kept and read again, what the program exports comes back the same, and no file
// whatever ends in an error that says nothing.
#include "capture/apercu/import.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "capture/apercu/choix/imc.h"
#include "capture/apercu/choix/reconnaissance.h"
#include "capture/apercu/octets/lecture.h"
#include "capture/preparation.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "support/classeurs.h"
#include "support/programme.h"
#include "utilities/exportcsv/exportcsv.h"

using namespace quelvar::capture;

namespace quelvar {
namespace {

class RunImportDeTable : public essai::RunDeProgramme {
 protected:
  Fin Importer(std::string_view octets, OptionsImport options = {}) {
    Ecrire("source.csv", octets);
    options.fichier = "source.csv";
    return capture::Importer(contexte_, options);
  }
};

TEST_F(RunImportDeTable, ChoicesWrittenAreTheChoicesRead) {
  std::vector<ChoixDeColonne> choix(6);
  choix[0] = {"a=b;c", Genre::Textes, "ABC", Ordre::Donne, {"Homme", "x|y", " bord ", "dit \"oui\""}, {"NSP", ""}, {},
              0,       '\0',          {}};
  choix[1] = {"", Genre::Classes, "A B", Ordre::Alphabetique, {}, {}, {-1.5, 0, 1e6}, 0, '\0', {}};
  choix[2] = {"# titre", Genre::Classes, "  Q", Ordre::Alphabetique, {}, {"9"}, {}, 4, '\0', {}};
  choix[3] = {"L\xE9gende", Genre::Multiple, "Mul", Ordre::Alphabetique, {}, {}, {}, 0, ';', {}};
  choix[4] = {"L\xE9gende", Genre::Multiple, "Mu2", Ordre::Alphabetique, {}, {}, {}, 0, '\0', {"Oui", "X"}};
  choix[5] = {"Ville", Genre::Textes, "VIL", Ordre::Frequence, {"Paris"}, {}, {}, 0, '\0', {}};
  Ecrire("x.imc", EcrireImc(choix));
  const std::vector<ChoixDeColonne> lus = LireImc(dossier_.Chemin() / "x.imc");
  EXPECT_EQ(EcrireImc(lus), EcrireImc(choix));
  ASSERT_EQ(lus.size(), choix.size());
  for (std::size_t i = 0; i < choix.size(); ++i) EXPECT_EQ(lus[i], choix[i]) << i;
}

TEST_F(RunImportDeTable, BoundsAsTheFormShowsThem) {
  for (const std::string_view bornes : {"15|25.5|35", "15 25.5 35", " 15  25.5 | 35 "}) {
    Ecrire("x.imc", Joindre({"AGE=classes;AGE;bornes=", bornes, "\n"}));
    EXPECT_EQ(LireImc(dossier_.Chemin() / "x.imc").at(0).bornes, (std::vector<double>{15, 25.5, 35})) << bornes;
  }
}

TEST_F(RunImportDeTable, AFaultyChoiceIsToldWithItsLine) {
  for (const std::string_view ligne :
       {"SEX", "SEX=inconnu", "SEX=codes;TROP", "SEX=classes;SEX", "SEX=classes;SEX;bornes=3|2",
        "SEX=classes;SEX;groupes=1", "SEX=classes;SEX;groupes=1 0", "SEX=codes;SEX;ordre=autre", "\"SEX=codes"}) {
    Ecrire("x.imc", Joindre({"# titre\n", ligne, "\n"}));
    OptionsImport options;
    options.fichierChoix = "x.imc";
    EXPECT_EQ(Importer("SEX;AGE\n1;2\n2;3\n1;4\n", options), Fin::Arret) << ligne;
    EXPECT_TRUE(Dit("ligne 2 du fichier des choix")) << ligne << "\n" << montre_;
    EXPECT_FALSE(Existe("ENQ.DAT"));
  }
}

// Codes of every individual by question.
std::vector<std::vector<int>> Reponses(const Contexte& contexte) {
  const FichierPos pos = LirePos(contexte.Exiger(".POS"));
  std::vector<std::vector<int>> reponses;
  LecteurLignes lecteur(contexte.Exiger(".DAT"));
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    std::vector<int>& individu = reponses.emplace_back();
    for (const Question& question : pos.questions)
      individu.push_back(static_cast<int>(ValeurDe(
          Milieu(ligne, static_cast<std::size_t>(question.position), static_cast<std::size_t>(question.largeur)))));
  }
  return reponses;
}

TEST_F(RunImportDeTable, WhatWasWrittenByHandStaysBesideTheImport) {
  Ecrire("ENQ.CSV", "precieux\r\n1\r\n");
  Ecrire("ENQ.IMC", "# les miens\r\n");
  for (int fois = 0; fois < 2; ++fois) ASSERT_EQ(Importer("a;b\n1;2\n2;1\n"), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENQ.CS2"), "precieux\r\n1\r\n");
  EXPECT_EQ(Lire("ENQ.IM2"), "# les miens\r\n");
  EXPECT_FALSE(Existe("ENQ.CS3"));
  EXPECT_FALSE(Existe("ENQ.IM3"));
}

TEST_F(RunImportDeTable, LabelsTypedByHandOutliveTwoImports) {
  const std::string_view table = "q\noui\nnon\noui\nnon\noui\nnon\n";
  ASSERT_EQ(Importer(table), Fin::Normale) << montre_;
  Ecrire("ENQ.MOD", "a la main");
  Ecrire("ENQ.BRT", "");
  for (int fois = 0; fois < 2; ++fois) ASSERT_EQ(Importer(table), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENQ.MO3"), "a la main\r\n");
  EXPECT_TRUE(boites_.empty()) << "the same data";
  ASSERT_EQ(Importer("q\noui\noui\noui\nnon\noui\nnon\n"), Fin::Normale) << montre_;
  ASSERT_FALSE(boites_.empty());
  EXPECT_TRUE(boites_.back().ends_with("avant de s'en servir : ENQ.BRT")) << boites_.back();
}

// What is there of another table is replaced by a yes only; what the same columns have made is made again.
TEST_F(RunImportDeTable, AGenericThatExistsIsNotWrittenOverUnasked) {
  const std::string_view octets = "a;b\n1;2\n2;1\n";
  struct Cas {
    std::map<std::string, std::string> presents;
    bool demande;
  };
  const std::vector<Cas> cas = {
      {{{"ENQ.DAT", "11\r\n"}, {"ENQ.POS", "ENQ\r\n 1 \r\nabc   1 2\r\n"}}, true},
      {{{"ENQ.DAT", "11\r\n"}, {"ENQ.IMC", "autre=codes;AUT\r\n"}}, true},
      {{{"ENQ.CSV", "precieux\r\n"}}, true},
      {{{"ENQ.DES", "x\r\n"}}, true},
      {{{"ENQ.DAT", "11\r\n"}, {"ENQ.IMC", "a=codes;a\r\nb=codes;b\r\n"}}, false},
      {{{"ENQ.DAT", "11\r\n"}, {"ENQ.CSV", std::string(octets)}}, false},
      {{{"ENQ.POS", "ENQ\r\n 1 \r\nabc   1 2\r\n"}}, false},
  };
  for (std::size_t i = 0; i < cas.size(); ++i) {
    for (const auto& fichier : Fichiers()) Effacer(fichier.first);
    for (const auto& [nom, contenu] : cas[i].presents) Ecrire(nom, contenu);
    boites_.clear();
    bouton_ = Reponse::Non;
    EXPECT_EQ(Importer(octets), cas[i].demande ? Fin::Arret : Fin::Normale) << i << montre_;
    ASSERT_EQ(boites_.size(), cas[i].demande ? 1U : 0U) << i;
    if (!cas[i].demande) continue;
    EXPECT_EQ(boites_[0],
              Joindre({"Le générique ENQ existe déjà : ses fichiers seront remplacés. L'acceptez-vous ?"_w}));
    EXPECT_TRUE(Dit("*** Arrêt du programme : le générique ENQ existe déjà, ses fichiers sont gardés"_w)) << montre_;
    for (const auto& [nom, contenu] : cas[i].presents) EXPECT_EQ(Lire(nom), contenu) << i;
    OptionsImport options;
    options.remplacer = true;
    EXPECT_EQ(Importer(octets, options), Fin::Normale) << i << montre_;
    EXPECT_EQ(boites_.size(), 1U) << i;
  }
}

// A title with a separator of its own has pushed the others: nobody can tell which title is whose.
TEST_F(RunImportDeTable, RowsThatAreAllShorterThanTheTitlesAreRefused) {
  const std::string refus = Joindre({"*** Erreur : toutes les lignes ont 2 valeur(s) pour 3 intitulés"_w});
  const std::map<std::string, bool> cas = {{"Sexe;Quel âge;en années\n1;2\n2;3\n", true},
                                           {"Sexe;Quel âge;en années\n1;2\n2;3;1\n", false},
                                           {"Sexe;Quel âge;\n1;2\n2;3\n", false},
                                           {"Sexe;Quel âge;en années\n1;2\n2\n", false}};
  for (const auto& [octets, refuse] : cas) {
    EXPECT_EQ(Importer(octets), refuse ? Fin::Arret : Fin::Normale) << octets << montre_;
    EXPECT_EQ(Dit(refus), refuse) << montre_;
    Ecrire("vu.csv", octets);
    const PreparationDImport preparation(dossier_.Chemin() / "vu.csv", {});
    EXPECT_EQ(preparation.Refus().size(), refuse ? 1U : 0U) << octets;
    EXPECT_FALSE(preparation.ToutVaBien() && octets != "Sexe;Quel âge;\n1;2\n2;3\n") << octets;
  }
  Ecrire("vu.csv", "a;b\n1;2;3\n1;2\n");
  const PreparationDImport longue(dossier_.Chemin() / "vu.csv", {});
  EXPECT_EQ(longue.Refus().size(), 1U) << "a row longer than the titles stops the import, and is told before";
}

// "Oui", "OUI" and "oui " are told, and become one code when that is asked for.
TEST_F(RunImportDeTable, TextsThatAreNearlyWrittenAlike) {
  const std::string_view octets = "q\nOui\nOUI\nOui\nNon\nnon\nNSP\n";
  ASSERT_EQ(Importer(octets), Fin::Normale) << montre_;
  EXPECT_TRUE(
      Dit("*** Attention : colonne 1 q : \"OUI\" (1), \"Oui\" (2) s'écrivent presque de même et ont des codes "
          "différents"_w))
      << montre_;
  Ecrire("c.imc", "q=textes;q;fondus=oui\n");
  OptionsImport options;
  options.fichierChoix = "c.imc";
  ASSERT_EQ(Importer(octets, options), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENQ.DAT"), "3\r\n3\r\n3\r\n1\r\n1\r\n2\r\n");
  EXPECT_TRUE(Dit("\"OUI\" (1), \"Oui\" (2) ont le même code"_w)) << montre_;
  EXPECT_NE(Lire("ENQ.MOD").find("Oui"), std::string::npos) << "the most frequent writing is the label";
  EXPECT_EQ(Lire("ENQ.MOD").find("OUI"), std::string::npos);
  EXPECT_NE(Lire("ENQ.IMC").find("fondus=oui"), std::string::npos);
}

TEST_F(RunImportDeTable, ASheetIsToldByItsNameAndNotByItsScratchFile) {
  const auto cellules = [](const std::vector<std::string>& valeurs) {
    std::string rangee = "<row>";
    for (const std::string& v : valeurs) rangee += "<c t=\"inlineStr\"><is><t>" + v + "</t></is></c>";
    return rangee + "</row>";
  };
  const std::string titres = cellules({"Sexe", "Age"});
  essai::EcrireXlsx(dossier_.Chemin() / "x.xlsx",
                    {{"name=\"Notice\"", titres},
                     {"name=\"Rep\"", titres + cellules({"1", "2"}) + cellules({"2"}) + cellules({"1", "3"})},
                     {"name=\"Codes\"", titres + cellules({"5", "6"})}});
  OptionsImport options;
  options.fichier = "x.xlsx";
  const auto verifier = [&] {
    EXPECT_TRUE(Dit("Lecture du fichier x.xlsx : feuille \"Rep\" (2 sur 3), intitulés à la ligne 1\r\n"_w)) << montre_;
    EXPECT_TRUE(Dit("Autres feuilles du classeur, qui ne sont pas lues : 1 \"Notice\", 3 \"Codes\"")) << montre_;
    EXPECT_TRUE(Dit("*** Attention : La feuille 1 \"Notice\" est vide ou n'a qu'une ligne")) << montre_;
    EXPECT_FALSE(Dit("plus courte(s)")) << "an empty cell at the end of a row is no missing one";
  };
  MontrerApercu(contexte_, options);
  verifier();
  ASSERT_EQ(capture::Importer(contexte_, options), Fin::Normale) << montre_;
  verifier();
  EXPECT_EQ(Lire("ENQ.DAT"), "12\r\n2\r\n13\r\n");
  const PreparationDImport preparation(dossier_.Chemin() / "x.xlsx", {});
  EXPECT_EQ(preparation.Source().Feuille()->rang, 1U);
  EXPECT_EQ(preparation.Doutes().size(), 1U);
  options.feuille = "Notice";
  EXPECT_EQ(capture::Importer(contexte_, options), Fin::Arret);
  EXPECT_TRUE(Dit("(feuille 1 \"Notice\" ; les autres feuilles sont : 2 \"Rep\", 3 \"Codes\")")) << montre_;
  EXPECT_FALSE(Dit("feuille.csv")) << montre_;
}

TEST_F(RunImportDeTable, NamesOfTheUserAreNoChoiceOfTheProgram) {
  const std::string_view octets = "Sexe <b>de</b> la personne ?;Quel;Quelle\nFemme;1;2\nFemme;2;1\n";
  Ecrire("c.imc", "Quel=codes;ZZ1\n");
  OptionsImport options;
  options.fichierChoix = "c.imc";
  ASSERT_EQ(Importer(octets, options), Fin::Normale) << montre_;
  EXPECT_FALSE(Dit("ZZ1 pour la colonne")) << montre_;
  EXPECT_TRUE(Dit("Colonne 1 Sexe de la personne ? : 1 texte devient le code 1, avec son intitulé"_w)) << montre_;
}

TEST_F(RunImportDeTable, DataThatNoImportHasMadeStay) {
  Ecrire("ENQ.DAT", "11\r\n12\r\n");
  ASSERT_EQ(Importer("a;b\n1;2\n2;1\n"), Fin::Normale) << montre_;
  EXPECT_EQ(Lire("ENQ.DA2"), "11\r\n12\r\n");
  EXPECT_TRUE(Dit("L'ancien fichier ENQ.DAT est sauvegardé sous le nom ENQ.DA2"_w)) << montre_;
  ASSERT_EQ(Importer("a;b\n1;1\n2;1\n"), Fin::Normale) << montre_;
  EXPECT_FALSE(Existe("ENQ.DA3")) << "what an import has made can be made again";
}

TEST_F(RunImportDeTable, NegativesAreToldBeforeTheImport) {
  const std::string_view octets = "q;temp\n1;-5\n2;13\n1;-12\n2;7\n";
  const std::string dit = Joindre({"*** Attention : 2 valeur(s) négative(s) comptée(s) pour 0 à la colonne 2 temp"_w});
  Ecrire("source.csv", octets);
  OptionsImport options;
  options.fichier = "source.csv";
  MontrerApercu(contexte_, options);
  EXPECT_TRUE(Dit(dit)) << montre_;
  PreparationDImport preparation(dossier_.Chemin() / "source.csv", {});
  EXPECT_EQ(preparation.Remarques(), std::vector<std::string>{dit});
  EXPECT_FALSE(preparation.ToutVaBien());
  preparation.ChangerGenre(1, Genre::Ecartee);
  EXPECT_TRUE(preparation.Remarques().empty()) << "a column left aside loses nothing";
  ASSERT_EQ(Importer(octets), Fin::Normale);
  EXPECT_TRUE(Dit(dit)) << montre_;
}

TEST_F(RunImportDeTable, WhatTheProgramExportsComesBackTheSame) {
  std::mt19937 hasard(17);
  for (int tour = 0; tour < 40; ++tour) {
    const bool codes = tour % 2 == 0;
    std::string pos = "ENQ\r\n 0 \r\n";
    std::string mod = "ENQ\r\n FMT=1 \r\n";
    std::string choix;
    for (int q = 0; q < 4; ++q) {
      const std::string nom = {static_cast<char>('A' + q), 'B', 'C'};
      pos += Joindre({nom, "   ", Nombre(q + 1), " 9 $", nom, " question ", Nombre(q), "$\r\n"});
      choix += Joindre({nom, " question ", Nombre(q), "=textes;", nom, ";zero=nr;textes="});
      for (int code = 1; code <= 9; ++code) {
        mod += Joindre({nom, Nombre(code), "   Modalité "_w, Nombre(10 - code), "; de ", nom, "\r\n"});
        choix += Joindre({code > 1 ? std::string_view("|\"") : std::string_view("\""), "Modalité "_w, Nombre(10 - code),
                          "; de ", nom, "\""});
      }
      choix += "\r\n";
    }
    std::string dat = "9999\r\n9999\r\n";
    for (int i = 0; i < 20; ++i) {
      std::string ligne;
      for (int q = 0; q < 4; ++q) ligne += static_cast<char>('0' + hasard() % 10);
      dat += (ligne == "0000" ? "1000" : ligne) + "\r\n";
    }
    Ecrire("ENQ.POS", pos);
    Ecrire("ENQ.DAT", dat);
    Ecrire("ENQ.MOD", mod);
    const std::vector<std::vector<int>> avant = Reponses(contexte_);
    utilities::OptionsExportCsv exportation;
    exportation.codes = codes;
    exportation.utf8 = tour % 4 < 2;
    exportation.tabulation = tour % 3 == 0;
    ASSERT_EQ(utilities::ExporterCsv(contexte_, exportation), Fin::Normale);
    OptionsImport options;
    if (!codes) {
      Ecrire("x.imc", VersUtf8(choix));
      options.fichierChoix = "x.imc";
    }
    const std::string csv = Lire(Existe("ENQ.csv") ? "ENQ.csv" : "ENQ.CSV");
    ASSERT_EQ(Importer(csv, options), Fin::Normale) << VersUtf8(montre_) << csv;
    EXPECT_EQ(Reponses(contexte_), avant) << VersUtf8(montre_) << csv;
    if (codes) continue;
    for (int code = 1; code <= 9; ++code)
      EXPECT_NE(Lire("ENQ.MOD").find(Joindre({"ABC", Nombre(code), "   Modalité "_w, Nombre(10 - code), "; de ABC"})),
                std::string::npos);
  }
}

TEST_F(RunImportDeTable, NoFileEndsInAnErrorThatSaysNothing) {
  std::mt19937 hasard(3);
  static constexpr std::string_view kSignes = "0123456789;;;;,,\t|\"\r\n\n\n aZ\xE9.-+%E*$<>\xA0[]_&";
  static constexpr std::string_view kTitres = "A;B;C;D\n";
  for (int tour = 0; tour < 300; ++tour) {
    std::string octets(tour % 3 == 0 ? kTitres : std::string_view{});
    const std::size_t taille = hasard() % 120;
    for (std::size_t i = 0; i < taille; ++i)
      octets += tour % 7 == 0 ? static_cast<char>(hasard() % 256) : kSignes[hasard() % kSignes.size()];
    montre_.clear();
    const Fin fin = Importer(octets);
    EXPECT_FALSE(Dit("Incompatibilit\xE9 de type")) << octets << "\n" << montre_;
    EXPECT_TRUE(fin == Fin::Normale || Dit("*** Arr") || (Dit("*** Erreur") && Dit("ligne"))) << octets << "\n"
                                                                                              << montre_;
    EXPECT_EQ(Existe("ENQ.DAT"), fin == Fin::Normale) << octets;
    for (const char* const nom : {"ENQ.DAT", "ENQ.POS", "ENQ.MOD", "ENQ.TXT", "ENQN.CDG", "ENQN.MOD"}) Effacer(nom);
  }
}

// Lines that end in CR alone behind the head of the file, with and without a mark, are rows like the others.
TEST_F(RunImportDeTable, LineEndsInCrAloneWhereverTheyStand) {
  for (const std::string_view marque : {"", "\xEF\xBB\xBF"}) {
    for (const std::size_t tete : {std::size_t{1} << 17, (std::size_t{1} << 20) + 70000}) {
      std::string octets = Joindre({marque, "sexe;avis\r\n"});
      std::int64_t individus = 0;
      for (; octets.size() < tete; ++individus) octets += individus % 2 == 0 ? "Femme;1\r\n" : "Homme;2\r\n";
      octets += "Homme;3\rFemme;2\rHomme;1\r";
      ASSERT_EQ(Importer(octets), Fin::Normale) << tete << montre_;
      EXPECT_TRUE(Dit(Joindre({"Le nombre d'individus est de  ", Nombre(individus + 3), " "}))) << tete << montre_;
      EXPECT_TRUE(Lire("ENQ.DAT").ends_with("23\r\n12\r\n21\r\n")) << tete;
    }
  }
}

// Halves of letters beyond Latin-1 look like control bytes.
TEST_F(RunImportDeTable, Utf16WithoutMark) {
  const std::u16string texte = u"q;r\n1;c\u0153ur\n2;l\u2019\u00E9t\u00E9\n1;l\u2019\u00E9t\u00E9\n2;c\u0153ur\n";
  for (const bool grand : {false, true}) {
    std::string octets;
    for (const char16_t unite : texte) {
      const std::string deux = {static_cast<char>(unite & 0xFF), static_cast<char>(unite >> 8)};
      octets.append(grand ? std::string(deux.rbegin(), deux.rend()) : deux);
    }
    ASSERT_EQ(Importer(octets), Fin::Normale) << montre_;
    EXPECT_EQ(Lire("ENQ.DAT"), "11\r\n22\r\n12\r\n21\r\n");
    EXPECT_NE(Lire("ENQ.MOD").find(Joindre({"cœur"_w})), std::string::npos);
  }
}

// What the user lays down holds for every column: a number written otherwise is told, and never read otherwise.
TEST_F(RunImportDeTable, TheDecimalSignOfTheUserHolds) {
  const std::string_view octets = "id;v\n7;1,5\n8;2,25\n7;3,125\n8;1,234\n";
  OptionsImport options;
  options.lecture.decimale = '.';
  EXPECT_EQ(Importer(octets, options), Fin::Arret);
  EXPECT_TRUE(Dit("*** Erreur : colonne 2 v, ligne 2 : \"1,5\" n'a pas le signe décimal donné"_w)) << montre_;
  EXPECT_TRUE(Dit("ligne 5 : \"1,234\"")) << montre_;
  options.lecture.decimale = ',';
  EXPECT_EQ(Importer(octets, options), Fin::Normale) << montre_;
  Ecrire("vu.csv", octets);
  PreparationDImport preparation(dossier_.Chemin() / "vu.csv", {});
  EXPECT_TRUE(preparation.Refus().empty());
  Lecture lecture = preparation.LectureEnCours();
  lecture.decimale = '.';
  lecture.sourceDeDecimale = SourceDeDecimale::Donnee;
  preparation.ChangerLecture(lecture);
  EXPECT_EQ(preparation.Refus().size(), 4U);
}

TEST_F(RunImportDeTable, RowsOfAnotherEncodingAreToldByTheirLines) {
  ASSERT_EQ(Importer("q;r\n1;\xC3\xA9t\xC3\xA9\n2;hiver\n1;caf\xE9\n2;\xC3\xA9t\xC3\xA9\n1;caf\xE9\n"), Fin::Normale);
  EXPECT_TRUE(Dit("il est lu en windows-1252 : 2 ligne(s) ne sont pas en UTF-8 (ligne 4, 6)")) << montre_;
}

// Rising numbers of the individuals are laid at one go, others after a first look: the lines are the same.
TEST_F(RunImportDeTable, NumbersOfIndividualsInWhateverOrder) {
  std::vector<std::string> attendues;
  for (int i = 1; i <= 1500; ++i) {
    const std::string numero = Nombre(7 * i);
    attendues.push_back(Joindre({std::string(5 - numero.size(), ' '), numero, Nombre(i % 9)}));
  }
  for (const bool croissants : {true, false}) {
    std::string csv = "id;a\n";
    for (std::size_t i = 0; i < attendues.size(); ++i) {
      const std::string& ligne = attendues[croissants ? i : attendues.size() - 1 - i];
      csv += Joindre({Rogner(ligne.substr(0, 5)), ";", ligne.substr(5), "\n"});
    }
    ASSERT_EQ(Importer(csv), Fin::Normale) << montre_;
    EXPECT_TRUE(Dit("NON (num\xE9ro) id")) << montre_;
    std::vector<std::string> lignes;
    LecteurLignes lecteur(dossier_.Chemin() / "ENQ.DAT");
    for (std::string_view ligne; lecteur.Lire(ligne);) lignes.emplace_back(ligne);
    if (!croissants) std::reverse(lignes.begin(), lignes.end());
    EXPECT_EQ(lignes, attendues);
    EXPECT_FALSE(Existe("ENQN.CDG"));
  }
}

// The encoding, then the separator, of heads that a hasty look would misjudge.
TEST_F(RunImportDeTable, WhatAHeadShowsOfItsReading) {
  const struct {
    std::string octets;
    EncodageDeTable encodage;
    char separateur, decimale;
  } cas[] = {{"A;B\n1;2\n", EncodageDeTable::Windows1252, ';', ','},
             {"Quel\x85;Quelle\x85\n1;2\n", EncodageDeTable::Windows1252, ';', ','},
             {"l\x92"
              "\xE9tat;B\n1;2\n",
              EncodageDeTable::Windows1252, ';', ','},
             {"R\x82ponse;\x85ge\n1;2\n", EncodageDeTable::Cp850, ';', ','},
             {"Prix en \xA4;B\n1;2\n", EncodageDeTable::Latin9, ';', ','},
             {"Cot\xE9,B\n1,2.5\n", EncodageDeTable::Windows1252, ',', '.'},
             {"A;B;C\n1,5;2,5;3\n", EncodageDeTable::Windows1252, ';', ','},
             {"A,B\n\"1,5\",2\n\"2,25\",3\n", EncodageDeTable::Windows1252, ',', ','},
             {"A;B\n1.5;2\n2.25;3\n", EncodageDeTable::Windows1252, ';', '.'},
             {"A,B\n\"a;b;c\",2\n\"a;c;d\",3\n", EncodageDeTable::Windows1252, ',', '.'}};
  for (const auto& c : cas) {
    Ecrire("x.csv", c.octets);
    const Lecture lecture = DetecterLecture(dossier_.Chemin() / "x.csv").lecture;
    EXPECT_EQ(lecture.encodage, c.encodage) << c.octets;
    EXPECT_EQ(lecture.separateur, c.separateur) << c.octets;
    EXPECT_EQ(lecture.decimale, c.decimale) << c.octets;
  }
}

}  // namespace
}  // namespace quelvar
