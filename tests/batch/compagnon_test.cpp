// The companion as a process: its state when what it reads is no file and what it writes does not arrive, names in
// other scripts, and two of it at once.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <regex>

#include "core/fichiers/fichiers.h"
#include "support/environnement.h"

namespace quelvar::batch {
namespace {

class Compagnon : public testing::Test {
 protected:
  Compagnon() {
    Ecrire("ENQ.DAT", "11\r\n22\r\n12\r\n21\r\n");
    Ecrire("ENQ.POS", "ENQ\r\n 4 \r\nAAA   1 2\r\nBBB   2 2\r\n");
  }
  void Ecrire(const std::string& nom, std::string_view octets) const {
    essai::EcrireOctets(dossier_.Chemin() / nom, octets);
  }
  // State of a line of the shell, in which "Q" is the companion; both outputs go to `sortie_` unless the line says
  // else.
  int Lancer(const std::string& ligne) {
    const std::string commande = "cd '" + dossier_.Chemin().string() + "' && Q='" QUELVAR_BATCH "' && ( " + ligne +
                                 " ) >.sortie 2>.boites </dev/null";
    const int etat = std::system(commande.c_str());
    sortie_ = LireOctets(dossier_.Chemin() / ".sortie") + LireOctets(dossier_.Chemin() / ".boites");
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
  }

  essai::DossierTemporaire dossier_;
  std::string sortie_;
};

TEST_F(Compagnon, TellsWhatItCouldNotReadOrWrite) {
  struct Cas {
    const char* ligne;
    int etat;
    const char* dit;  // UTF-8
  };
  for (const Cas& c : {
           Cas{"$Q triapl ENQ", 0, "Fin normale"},
           Cas{"(echo 'q;r'; for i in $(seq 900); do echo '1;5 %'; done) >l.csv; $Q apercu fichier=l.csv", 0,
               "ligne 901"},  // a long account without a data set to keep it
           Cas{"touch b.dbf; $Q apercu fichier=b.dbf", 1, "s'importe sans aperçu"},
           Cas{"$Q --liste >/dev/full", 1, "la sortie standard n'a pas pu être écrite : Disque plein"},
           Cas{"$Q triapl ENQ >/dev/full", 1, "Disque plein"},
           Cas{"$Q triapl ENQ >&-", 1, "la sortie standard n'a pas pu être écrite"},
           Cas{"mv ENQ.TAP bon; ln -s /dev/null ENQ.TAP; $Q triapl ENQ", 1, "est un tube ou un périphérique"},
           Cas{"rm ENQ.TAP; mkfifo ENQ.TAP; $Q triapl ENQ", 1, "est un tube ou un périphérique"},
           Cas{"rm ENQ.TAP; mv bon ENQ.TAP; (ulimit -f 0; exec $Q triapl ENQ) 2>&1 | cat", 0, "Disque plein"},
           Cas{"grep -c 'Fin normale' ENQ.TAP", 0, "1"},
           Cas{"(ulimit -f 0; exec $Q croise ENQ lignes=AAA colonnes=BBB; echo $?) | cat; test ! -e ENQ.TCR", 0,
               "ERREUR NUMERO = 61"},
           Cas{"mv ENQ.DAT vrai; mkfifo ENQ.DAT; $Q triapl ENQ", 1, "ENQ.DAT est un tube ou un périphérique"},
           Cas{"rm ENQ.DAT; mkdir ENQ.DAT; $Q triapl ENQ", 1, "ENQ.DAT est un répertoire et non un fichier"},
           Cas{"ln -s boucle boucle; $Q -C boucle triapl ENQ", 2, "répertoire introuvable"},
           Cas{"$Q -C ENQ.POS triapl ENQ", 2, "répertoire introuvable"},
       }) {
    EXPECT_EQ(Lancer(c.ligne), c.etat) << c.ligne << '\n' << sortie_;
    EXPECT_NE(sortie_.find(c.dit), std::string::npos) << c.ligne << '\n' << sortie_;
  }
  EXPECT_EQ(Lancer("ls -A | grep -c '~'"), 1) << "no scratch file is left";
}

TEST_F(Compagnon, UnderstandsEveryCommandThatTheDocumentsShow) {
  static const std::regex commande("(^|\n|>|\" \\| )quelvar-batch ([^<&\n]*)");  // behind "&" the shell reads a file
  int vues = 0;
  for (const char* document : {"README.md", "docs/aide/QuelvarAide.html"}) {
    const std::string texte = LireOctets(std::filesystem::path(QUELVAR_RACINE) / document);
    for (std::sregex_iterator i(texte.begin(), texte.end(), commande); i != std::sregex_iterator(); ++i) {
      const std::string arguments = (*i)[2];
      if (arguments.find("PROGRAMME") != std::string::npos) continue;
      EXPECT_NE(Lancer("$Q " + arguments), 2) << arguments << '\n' << sortie_;
      ++vues;
    }
  }
  EXPECT_GT(vues, 50);
}

// A position that is none, a question asked for twice, two things that exclude each other: the user's, not the run's.
TEST_F(Compagnon, RefusesValuesByTheirOption) {
  struct Cas {
    const char* ligne;
    int etat;
    const char* dit;  // UTF-8
  };
  for (const Cas& c : {
           Cas{"$Q anecar ENQ cah=non csv=oui", 2, "les options cah=non et csv=oui se contredisent"},
           Cas{"$Q anecar ENQ csv=oui cah=NON", 2, "les options cah=NON et csv=oui se contredisent"},
           Cas{"$Q nomquest ENQ intitule=AAA=a intitule=AAA=b", 2, "l'option intitule est donnée deux fois"},
           Cas{"$Q triapl ENQ limite=50 limite=050 modalites=OUI modalites=oui", 0, "Fin normale"},
           Cas{"$Q triapl --aide", 0, "s'abrège tant qu'une seule commence ainsi"},
       }) {
    EXPECT_EQ(Lancer(c.ligne), c.etat) << c.ligne << '\n' << sortie_;
    EXPECT_NE(sortie_.find(c.dit), std::string::npos) << c.ligne << '\n' << sortie_;
  }
}

// What would not fit is asked about, and without an answer stops before anything is written, with the bytes.
TEST_F(Compagnon, NothingTakesTheDiskOrTheMemoryUnasked) {
  Ecrire("T.MOD", "T\r\n LIGN=1 FMT=15 \r\nC1     x\r\n");
  Ecrire("T.BRT", "L1  999999999999999\r\n");
  Ecrire("M.MOD", "M\r\n BRT=1 FMT=1 \r\nCIN1 Y oui\r\nCIN2   non\r\nSEX1 R homme\r\nSEX2 X femme\r\n");
  Ecrire("G.POS", "G\r\n 900000000000 \r\nAAA   1 2 $Une question$\r\n");
  Ecrire("G.MOD", "G\r\n BRT=2 FMT=1 \r\nAAA1   Une modalite\r\nAAA2   Une autre\r\n");
  for (const char* ligne : {
           "$Q gendat T",
           "truncate -s 64G G.TXT; $Q trifichier T a=G.TXT c=H.TXT position=1 largeur=3",
           "truncate -s 900G G.DAT; $Q export-csv G",
           "$Q varint G questions=AAA",
           "truncate -s 900G G.TRG; $Q triang G",
           "truncate -s 900G M.TXT; $Q saisiemot M position=2",
           "truncate -s 900G M.CDG; $Q anatab M",
           // 15,000 modalities by all the others; 60,000 words by 900 questions of 99 codes
           "{ printf 'P\\n BRT=2 FMT=1 \\n'; seq 4096 19095 | xargs printf '%04x   une\\n'; } >P.MOD; echo 0000 "
           ">P.BRT; "
           "$Q profilmod P modalites=$(seq 4096 19095 | xargs printf '%04x,' | sed 's/,$//')",
           "seq 10000 69999 | sed 's/.*/01&mot&    $$*** mot/' >W.DAT; { printf 'W\\n 60000 \\n'; seq 100 999 | "
           "sed 's/$/   199 $Q$ \\&ACT\\&/'; } >W.POS; $Q tabmot W frequence=1 limite=0",
       }) {
    EXPECT_EQ(Lancer(ligne), 1) << ligne << '\n' << sortie_;
    EXPECT_NE(sortie_.find("*** Arret du programme : il prendrait"), std::string::npos) << ligne << '\n' << sortie_;
    EXPECT_NE(sortie_.find("octets"), std::string::npos);
  }
  EXPECT_NE(Lancer("ls T.DAT T.POS H.TXT G.csv G.BRT G.svg M.DAT M.CD2 W.BRT"), 0);
}

TEST_F(Compagnon, NamesInOtherScriptsAreOpenedAsTheyAre) {
  EXPECT_EQ(Lancer("mkdir Опрос && cp ENQ.DAT Опрос/Да.DAT && cp ENQ.POS Опрос/Да.POS && cp ENQ.POS Опрос/Нет.POS && "
                   "$Q -C Опрос triapl Да && test -s Опрос/Да.TAP"),
            0)
      << sortie_;
  EXPECT_NE(sortie_.find("Les impressions se font sur ??.TAP"), std::string::npos) << sortie_;
  EXPECT_EQ(Lancer("$Q -C Опрос triapl Нет"), 1) << "another name of as many letters is another generic";
  EXPECT_EQ(
      Lancer("cp ENQ.DAT Данные.DAT && $Q trifichier ENQ a=Данные.DAT c=Порядок.TXT position=1 largeur=1 && "
             "test -s Порядок.TXT && $Q croise ENQ lignes=AAA colonnes=BBB donnees=Данные.DAT graphique=граф.svg && "
             "test -s граф.svg"),
      0)
      << sortie_;
  EXPECT_EQ(Lancer("$Q -C Опрос recodage Да && ls Опрос/Дб.POS"), 0) << sortie_;
  EXPECT_EQ(Lancer("ln -s ailleurs .ENQ.verrou; $Q triapl ENQ; a=$?; rm .ENQ.verrou; exit $a"), 1);
  EXPECT_NE(sortie_.find(".ENQ.verrou est un lien et non un verrou"), std::string::npos) << sortie_;
}

// Of two that start together each comes to its end or stops before the other; nothing is mixed.
TEST_F(Compagnon, TwoAtOnce) {
  const char* voulues = std::getenv("QUELVAR_PAIRES");
  const int paires = voulues != nullptr ? std::atoi(voulues) : 4;
  std::string csv = "AAA;BBB\r\n";
  for (int i = 0; i < 5000; ++i) csv += i % 3 == 0 ? "1;2\r\n" : "2;1\r\n";
  Ecrire("ENQ.CSV", csv);
  ASSERT_EQ(Lancer("$Q import-csv ENQ && $Q posmod ENQ actives=AAA,BBB individus=oui && $Q recodage ENQ"), 0)
      << sortie_;
  for (const std::string programme :
       {"import-csv ENQ", "posmod ENQ actives=AAA,BBB individus=oui", "ecapem ENQ", "anecar ENQ cah=ward1",
        "recodage ENQ", "triapl ENQ", "croise ENQ lignes=AAA colonnes=BBB"}) {
    ASSERT_EQ(Lancer("$Q " + programme +
                     " && rm -f *.TCR *.PO2 .*.jeu && cksum ENQ.BRT ENQ.MOD ENQ.CDG ENQ.DAT ENQ.POS "
                     "ENR.DAT ENR.POS >bilan"),
              0);
    const int etat = Lancer(
        "i=0; while [ $i -lt " + std::to_string(paires) + " ]; do $Q --horloge '2017-05-02 14:30:00' " + programme +
        " >.un 2>&1 & p=$!; "
        "$Q --horloge '2017-05-02 14:30:00' " +
        programme +
        " >.deux 2>&1; b=$?; wait $p; a=$?; "
        "[ $a -le 1 ] && [ $b -le 1 ] && [ $((a + b)) -le 1 ] || exit 3; "
        "[ $((a + b)) -eq 0 ] || grep -aq \"cours d'écriture par un autre programme\" .un .deux || exit 4; "
        "rm -f *.TCR *.PO2 .*.jeu; i=$((i + 1)); done; "
        "cksum ENQ.BRT ENQ.MOD ENQ.CDG ENQ.DAT ENQ.POS ENR.DAT ENR.POS | cmp - bilan || exit 5; "
        "ls -A | grep '~' && exit 6; exit 0");
    EXPECT_EQ(etat, 0) << programme << '\n' << sortie_;
  }
}

}  // namespace
}  // namespace quelvar::batch
