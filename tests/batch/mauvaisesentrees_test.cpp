// Broken and unusual inputs of the imports, the table programs and the utilities: each is told in its own words, and no
// input is written.
#include <gtest/gtest.h>

#include <map>

#include "batch/programmes.h"
#include "support/programme.h"

namespace quelvar {

using namespace quelvar::batch;

namespace {

using Contenu = std::map<std::string, std::string>;

struct Cas {
  const char* nom;
  const char* programme;
  LigneDOptions options;
  Contenu entrees;
  Fin fin;
  std::vector<std::string> dit;  // in the report or in a box
  long place = -1;               // bytes that the disk has room for
};

std::string Entier(std::size_t nombre, std::size_t octets) {
  std::string texte;
  for (; octets > 0; --octets, nombre /= 256) texte += static_cast<char>(nombre % 256);
  return texte;
}

struct ChampDeTest {
  const char* nom;
  char type;
  std::size_t largeur;
};

// A dBase file; what its header tells may be a lie.
struct DeTest {
  std::vector<ChampDeTest> champs;
  std::string donnees;  // the records with their deletion marks
  std::size_t nombre;
  char page = 0;
  std::size_t enregistrement = 0;  // 0: the sum of the widths and the mark
  std::size_t entete = 0;          // 0: the true one
  char version = 3;
};

std::string Dbf(const DeTest& test) {
  std::size_t longueur = 1;
  for (const ChampDeTest& champ : test.champs) longueur += champ.largeur;
  if (test.enregistrement > 0) longueur = test.enregistrement;
  const std::size_t entete = test.entete > 0 ? test.entete : 32 + 32 * test.champs.size() + 1;
  std::string octets(1, test.version);
  octets += std::string("\x67\x01\x01", 3) + Entier(test.nombre, 4) + Entier(entete, 2) + Entier(longueur, 2);
  octets.resize(32, '\0');
  octets[29] = test.page;
  for (const ChampDeTest& champ : test.champs) {
    std::string description = champ.nom;
    description.resize(11, '\0');
    description += champ.type;
    description.resize(16, '\0');
    description += static_cast<char>(champ.largeur);
    description.resize(32, '\0');
    octets += description;
  }
  return octets + "\r" + test.donnees;
}

const std::string kTrg = "Titre\r\nUn\r\nDeux\r\nTrois\r\n";
const std::string kMod = "ENQ\r\n LIGN=2 COL=2 FMT=4 \r\nC1     un\r\nC2     deux\r\n";

Contenu Table(const std::string& mod, const std::string& brt) { return {{"ENQ.MOD", mod}, {"ENQ.BRT", brt}}; }
// One question, and the lines behind it.
Contenu Enquete(const std::string& suite, const std::string& donnees) {
  return {{"ENQ.POS", "ENQ\r\n 0 \r\nSEX   1 2\r\n" + suite}, {"ENQ.DAT", donnees}};
}
Contenu Avec(Contenu entrees, const Contenu& autres) {
  entrees.insert(autres.begin(), autres.end());
  return entrees;
}
Contenu Paire(const std::string& a, const std::string& b) { return {{"A.DAT", a}, {"B.DAT", b}}; }
LigneDOptions Fusion(const char* type, const char* b = "B.DAT") {
  return {{"a", "A.DAT"}, {"b", b}, {"c", "C.DAT"}, {"type", type}};
}
LigneDOptions Avec(LigneDOptions options, const LigneDOptions& autres) {
  options.insert(options.end(), autres.begin(), autres.end());
  return options;
}

const std::string kTable = "L1     1   2\r\nL2     3   4\r\n";
const char* const kFin = "Il y a eu tentative de lire un fichier deja termine";

// A cell that is no number, and a row behind those that are announced.
const std::string kTableTapee = "L1    9O   2\r\nL2     3   4\r\nL3     7   8\r\n";
constexpr std::string_view kCelluleDite =
    "Cellules de ENQ.BRT qui ne sont pas des nombres, ou sont coupées : 1, la première ligne 1, colonne 1 (9O)"_w;
constexpr std::string_view kLigneDite = "lignes de ENQ.BRT au-delà de celles qui sont annoncées, laissées : 1"_w;
// A Burt table whose second modality has fewer answers than one of its cells.
const std::string kModDeBurt = "ENQ\r\n BRT=2 FMT=2 \r\nA1\r\nA2\r\n";
const std::string kBurtFaux = "A1   3 2\r\nA2   2 0\r\n";

std::vector<Cas> CasDesTableaux() {
  return {
      {"ecapem, une table tapée",
       "ecapem",
       {},
       Table(kMod, kTableTapee),
       Fin::Normale,
       {std::string(kCelluleDite), std::string(kLigneDite)}},
      {"anecar, une table tapée",
       "anecar",
       {},
       Table(kMod, kTableTapee),
       Fin::Normale,
       {std::string(kCelluleDite), std::string(kLigneDite)}},
      {"anecar, un Burt à décimales",
       "anecar",
       {},
       Table("ENQ\r\n BRT=2 FMT=3 \r\nA1\r\nA2\r\n", "A1  2.5  1\r\nA2    1  3\r\n"),
       Fin::Normale,
       {std::string("entiers positifs ou nuls, ou sont coupées : 1, la première ligne 1, colonne 1 (2.5)"_w)}},
      {"triang sans point",
       "triang",
       {},
       {{"ENQ.TRG", kTrg}},
       Fin::Normale,
       {"n'a aucun point : le triangle est vide"}},
      {"triang de trois lignes", "triang", {}, {{"ENQ.TRG", "T\r\nUn\r\nDeux\r\n"}}, Fin::Arret, {kFin}},
      {"triang qui ne fait pas 100",
       "triang",
       {},
       {{"ENQ.TRG", kTrg + "A    10.0 20.0 60.0\r\nB    20.0 30.0 50.0\r\n"}},
       Fin::Normale,
       {"Points dont les trois pourcentages ne font pas 100 : 1, le premier ligne 5, A (90)."}},
      {"reglin sur des dates",
       "reglin",
       {},
       {{"ENQ.MOD", "ENQ\r\n FMT=10\r\nREV  Y revenu\r\nDAT  X date\r\n"},
        {"ENQ.CDG",
         "1         12.5  20240101\r\n2         14.5  20240201\r\n3         13.0  20240301\r\n"
         "4         17.0  20240401\r\n"}},
       Fin::Normale,
       {"*** Attention : les valeurs de date sont trop grandes devant leur dispersion"}},
      {"modifburt sans marque",
       "modifburt",
       {},
       Table(kMod, kTable),
       Fin::Normale,
       {"*** Absence de traitement des colonnes ", "*** Absence de traitement des lignes"}},
      {"modifburt, une marque de rien",
       "modifburt",
       {{"colonnes", "C9"}},
       Table(kMod, kTable),
       Fin::Arret,
       {std::string("La modalité C9 n'est pas dans le fichier de modalités"_w)}},
      {"modifburt sans ligne 2", "modifburt", {{"colonnes", "C1"}}, Table("ENQ\r\n", kTable), Fin::Arret, {kFin}},
      {"gendat sans ligne 2", "gendat", {}, Table("ENQ\r\n", kTable), Fin::Arret, {kFin}},
      {"inversion sans ligne 2", "inversion", {}, Table("ENQ\r\n", kTable), Fin::Arret, {kFin}},
      {"gendat sans format",
       "gendat",
       {},
       Table("ENQ\r\n LIGN=2 \r\nC1\r\n", kTable),
       Fin::Arret,
       {"Erreur : pas de FMT= : il faut corriger le fichier *.MOD"}},
      {"profilmod sans ligne 2",
       "profilmod",
       {{"modalites", "C1"}},
       Table("ENQ\r\n", kTable),
       Fin::Arret,
       {std::string("La 2e ligne du fichier *.MOD (paramètres) est vide"_w)}},
      {"gendat, cellules qui ne sont pas des effectifs",
       "gendat",
       {},
       Table(kMod, "L1    -1 2.5\r\nL2     3   4\r\n"),
       Fin::Normale,
       {std::string(
            "cellules négatives, qui n'engendrent aucun individu : 1 la première à la ligne 1, colonne 1 (-1)"_w),
        std::string("cellules fractionnaires, qui sont arrondies : 1 la première à la ligne 1, colonne 2 (2.5)"_w)}},
  };
}

std::vector<Cas> CasDesFichiers() {
  const LigneDOptions parNumero = {{"positiona", "1"}, {"positionb", "1"}, {"largeur", "2"}};
  const LigneDOptions zone = {{"a", "A.DAT"}, {"c", "C.DAT"}, {"debut", "1"}};
  return {
      {"un fichier avec lui-même",
       "fusionner",
       Fusion("append", "a.dat"),
       {{"A.DAT", "01\r\n"}},
       Fin::Normale,
       {std::string("les fichiers A et B sont un seul et même fichier, A.DAT"_w)}},
      {"numéros en désordre",
       "fusionner",
       Avec(Fusion("choixind"), parNumero),
       Paire("01a\r\n02b\r\n03c\r\n", "02x\r\n01y\r\n"),
       Fin::Arret,
       {std::string("*** ERREUR Fichier B non terminé"_w), std::string("Vérifiez et corrigez avant de relancer"_w)}},
      {"B plus court",
       "fusionner",
       Avec(Fusion("choixind"), parNumero),
       Paire("01a\r\n02b\r\n", "01x\r\n"),
       Fin::Arret,
       {std::string("*** Le Fichier B est terminé avant le fichier A"_w)}},
      {"effectifs inégaux",
       "fusionner",
       Fusion("merge"),
       Paire("1\r\n2\r\n", "1\r\n"),
       Fin::Arret,
       {std::string("*** Erreur : les deux fichiers n'ont pas le même nombre d'individus"_w)}},
      {"une zone au-delà de la ligne",
       "exporter",
       Avec(zone, {{"fin", "4"}}),
       {{"A.DAT", "1234\r\n123\r\n"}},
       Fin::Arret,
       {std::string("la fin de la zone d'exportation dépasse la longueur de l'enregistrement"_w)}},
      {"C sur un disque plein",
       "exporter",
       Avec(zone, {{"fin", "300000"}}),
       {{"A.DAT", std::string(400000, '7') + "\r\n"}},
       Fin::Arret,
       {"ERREUR NUMERO = 61 "},
       100000},
      {"une fusion sur un disque plein",
       "fusionner",
       Fusion("append"),
       Paire(std::string(300000, '7') + "\r\n", "1\r\n"),
       Fin::Arret,
       {"ERREUR NUMERO = 61 "},
       100000},
  };
}

std::vector<Cas> CasDesImports() {
  const std::vector<ChampDeTest> deux = {{"SEX", 'N', 1}, {"AGE", 'N', 2}};
  const auto dbf = [](const DeTest& test) { return Contenu{{"ENQ.DBF", Dbf(test)}}; };
  return {
      {"un en-tête de 0", "import-dbf", {}, dbf({deux, " 112", 1, 0, 0, 1}), Fin::Arret, {"en faut au moins 32"}},
      {"des enregistrements de 0",
       "import-dbf",
       {},
       Contenu{{"ENQ.DBF", Dbf({{}, "", 2, 0, 65536})}},
       Fin::Normale,
       {"Nombre d'individus dans le fichier dBase= 2 "}},
      {"plus d'enregistrements que d'octets",
       "import-dbf",
       {},
       dbf({deux, " 112 2", 5}),
       Fin::Normale,
       {std::string("L'en-tête annonce 5 enregistrements, le fichier n'en contient que 1 entiers"_w)}},
      {"un champ au-delà de l'enregistrement",
       "import-dbf",
       {},
       dbf({deux, " 1", 1, 0, 2}),
       Fin::Normale,
       {"ce qui manque se lit comme des blancs"}},
      {"un champ mémo",
       "import-dbf",
       {},
       dbf({{{"SEX", 'N', 1}, {"TXT", 'M', 10}}, " 1         7", 1, 0, 0, 0, '\x83'}),
       Fin::Normale,
       {std::string("Le texte du champ mémo TXT est dans un autre fichier"_w)}},
      {"des accents de la page 850",
       "import-dbf",
       {},
       dbf({{{"NOM", 'C', 3}}, " \x82t\x82", 1, 2}),
       Fin::Normale,
       {"de la page de code 850 : 2, dont 0 sans"}},
      {"un enregistrement effacé",
       "import-dbf",
       {},
       dbf({deux, " 112*2 3", 2}),
       Fin::Normale,
       {std::string("Enregistrements marqués comme effacés : 1 (le premier est le numéro 2)"_w)}},
      {"un tableau de deux champs", "import-tableau", {}, dbf({deux, " 112", 1}), Fin::Arret, {"NUMERO = 9 "}},
      {"un mot parmi les effectifs d'un tableau",
       "import-tableau",
       {},
       dbf({{{"L", 'C', 4}, {"C1", 'N', 2}, {"C2", 'N', 3}, {"NOM", 'C', 2}}, " OUV112 abun", 1}),
       Fin::Arret,
       {"NUMERO = 13 "}},
      {"un mot parmi les effectifs de Burt",
       "import-burt",
       {{"fichier", "BURT.TXT"}},
       {{"BURT.TXT", "oui 3 x\r\nnon 0 2\r\n"}},
       Fin::Arret,
       {"NUMERO = 13 "}},
      {"un effectif qui n'est pas entier",
       "import-burt",
       {{"fichier", "BURT.TXT"}},
       {{"BURT.TXT", "oui 1 2\r\nnon 3 4\r\n"}},
       Fin::Normale,
       {std::string("n'est pas un nombre entier : vérifiez le tableau"_w)}},
      {"des fins de ligne en CR seul",
       "import-csv",
       {},
       {{"ENQ.CSV", "SEX;AGE\r1;2\r2;3\r"}},
       Fin::Normale,
       {std::string("les lignes de ENQ.CSV finissent par un retour chariot seul"_w)}},
      {"un Burt vide", "import-burt", {{"fichier", "BURT.TXT"}}, {{"BURT.TXT", "\r\n"}}, Fin::Arret, {kFin}},
  };
}

class MauvaisesEntrees : public essai::RunDeProgramme {
 protected:
  void Essayer(const Cas& cas) {
    SCOPED_TRACE(cas.nom);
    for (const auto& fichier : Fichiers()) Effacer(fichier.first);
    for (const auto& [nom, octets] : cas.entrees) Ecrire(nom, octets);
    boites_.clear();
    montre_.clear();
    const auto& programmes = Programmes();
    const auto programme =
        std::find_if(programmes.begin(), programmes.end(), [&](const Programme& p) { return p.nom == cas.programme; });
    ASSERT_NE(programme, programmes.end());
    std::optional<essai::DisquePlein> disque;
    if (cas.place >= 0) disque.emplace(static_cast<std::size_t>(cas.place));
    EXPECT_EQ(programme->executer(contexte_, cas.options), cas.fin) << montre_;
    disque.reset();
    std::string tout = montre_;
    for (const std::string& boite : boites_) tout += "\n" + boite;
    for (const std::string& dit : cas.dit) EXPECT_NE(tout.find(dit), std::string::npos) << dit << "\n--- " << tout;
    for (const auto& [nom, octets] : cas.entrees)
      EXPECT_TRUE(Existe(nom) && Lire(nom) == octets) << nom << " was written";
    EXPECT_FALSE(cas.place >= 0 && Existe("C.DAT"));
  }
};

TEST_F(MauvaisesEntrees, DesTableaux) {
  for (const Cas& cas : CasDesTableaux()) Essayer(cas);
}
TEST_F(MauvaisesEntrees, DesFichiers) {
  for (const Cas& cas : CasDesFichiers()) Essayer(cas);
}
TEST_F(MauvaisesEntrees, DesImports) {
  for (const Cas& cas : CasDesImports()) Essayer(cas);
}

// A stop that the report tells without a place has it on the screen: file, line, and the name that is wrong.
TEST_F(MauvaisesEntrees, LesArretsDisentLeurLieu) {
  const std::string sansFormat = "ENQ\r\n LIGN=2 COL=2 \r\nC1   Y un\r\nC2   R deux\r\n";
  const Contenu table = Table(sansFormat, kTable);
  const Contenu codage = {{"ENQ.MOD", sansFormat}, {"ENQ.CDG", "    10\r\n"}};
  const std::string faj = "C1    500    500  250\r\n\r\n";
  const std::string court = "Erreur : pas de FMT= (ENQ.MOD, ligne 2)";
  const std::string avecLeFichier = "Erreur : pas de parametre FMT= dans le fichier ENQ.MOD (ENQ.MOD, ligne 2)";
  const struct {
    const char* programme;
    LigneDOptions options;
    Contenu entrees;
    std::string panne;
  } cas[] = {
      {"graphe",
       {},
       {{"ENQ.MOD", kMod}, {"ENQ.FAJ", faj + "abc   500   -500  750\r\n"}},
       "le nom \"abc\" n'est pas dans ENQ.MOD (ENQ.FAJ, ligne 3)"},
      {"graphe", {}, {{"ENQ.MOD", kMod}}, ""},  // a missing file is no place
      {"anatab",
       {},
       {{"ENQ.MOD",
         "ENQ\r\n FMT=1\r\nAAA1 Y un\r\nAAA2   deux\r\nBBB1   un\r\nBBB2   deux\r\nCCC1 R un\r\nCCC2 R deux\r\n"},
        {"ENQ.CDG", "    101010\r\n"}},
       "la question BBB n'a pas de R ou de Y (ENQ.MOD, ligne 5)"},
      {"anatab",
       {},
       {{"ENQ.MOD", "ENQ\r\n FMT=1\r\nAAA1 Y un\r\nAAA2   deux\r\nCCC1 R un\r\nCCC2 R deux\r\n"},
        {"ENQ.CDG", "    1010\r\n"}},
       "la question CCC a plus d'un R ou d'un Y (ENQ.MOD, ligne 5)"},
      {"anatab", {}, codage, court},
      {"reglin", {}, codage, court},
      {"modifburt", {{"colonnes", "C1"}}, table, court},
      {"profilmod", {{"modalites", "C1"}}, table, court},
      {"gendat", {}, table, ""},  // its box has told all
      {"gendat",
       {},
       Table("ENQ\r\nZZZ\r\nC1\r\n", kTable),
       "Arret : manque signe = dans ligne 2 de *.MOD (ENQ.MOD, ligne 2)"},
      {"concordance", {{"lignes", "a"}}, table, avecLeFichier},
      {"ecapem",
       {},
       Avec(Table(kModDeBurt, "A1   3 2\r\nB2   2 4\r\n"), Enquete("", "1\r\n")),
       std::string(
           "*** Arret du programme : ENQ.BRT ne va pas avec le fichier de modalités, la ligne 2 porte le nom B2 au "
           "lieu de A2 : refaites le tableau (ENQ.BRT, ligne 2)"_w)},
      {"ecapem",
       {},
       Avec(Table(kModDeBurt, kBurtFaux), Enquete("", "1\r\n")),
       std::string("Division par zéro (ENQ.BRT, ligne 2)"_w)},
      {"ecapem",
       {},
       Avec(Table("ENQ\r\n BRT=3 FMT=2 \r\nA1\r\nA2\r\n", kBurtFaux), Enquete("", "1\r\n")),
       std::string("L'entrée dépasse la fin de fichier (ENQ.MOD, ligne 4)"_w)},
      {"anecar", {}, table, avecLeFichier},
      {"ecapem", {}, table, avecLeFichier},
      {"suplmot", {}, table, avecLeFichier},
      {"tabmotagreg", {}, table, avecLeFichier},
      {"recodage",
       {},
       Enquete("AGE   2 3  1x=2\r\n", "11\r\n"),
       std::string("Signe interdit (x, caractère 2 de la règle) a la question : AGE (ENQ.POS, ligne 4)"_w)},
      {"recodage",
       {},
       Enquete("$$CUL\r\nZZZ     1\r\n$$\r\n", "11\r\n"),
       "Nom de l'element VIT non trouve =ZZZ (ENQ.POS, ligne 5)"},
      {"triapl",
       {{"limite", "1"}},
       Enquete("", "3\r\n1\r\n4\r\n"),
       "Arret pour nombre de depassement de code-max > 1  (ENQ.DAT, ligne 3, colonne 1)"},
      {"varint",
       {{"questions", "SEX"}},
       Enquete("TRO   230\r\n", "112\r\n"),
       std::string("Code-max >20 à la question TRO (ENQ.POS, ligne 4)"_w)},
      {"anatab",
       {},
       {{"ENQ.MOD", "ENQ\r\n FMT=1\r\nAAA1 Y un\r\nAAA2   deux\r\nCCC1 R un\r\nCCC2   deux\r\n"},
        {"ENQ.CDG", "    1010\r\n    1110\r\n"}},
       std::string("l'individu 2 n'a pas une réponse à chaque question (ENQ.CDG, ligne 2)"_w)},
      {"reglin",
       {},
       {{"ENQ.MOD", "ENQ\r\n FMT=4\r\nREV  Y revenu\r\nAGE  X age\r\n"},
        {"ENQ.CDG", "1      1   2\r\n2      3\r\n3      4   5\r\n"}},
       "l'individu 2 n'a pas une valeur pour chaque variable (ENQ.CDG, ligne 2)"},
      {"saisiemot",
       {{"position", "3"}, {"lignes", "1"}},
       {{"ENQ.TXT", "12 un mot\r\nx\r\n"}},
       "ARRET DU AUX ERREURS RENCONTREES (ENQ.TXT, ligne 2)"},
      {"ecapem",
       {{"cliques", "oui"}},
       Avec(Table(kMod, kTable), {{"ENQ.NT1", "   1: 1 2\r\n   2: 2 9\r\n"}}),
       std::string("L'indice n'appartient pas à la sélection (ENQ.NT1, ligne 2)"_w)},
      {"exporter",
       {{"a", "A.TXT"}, {"c", "C.TXT"}, {"debut", "1"}, {"fin", "3"}},
       {{"A.TXT", "abcd\r\nab\r\n"}},
       std::string("*** Arrêt du programme car le début ou la fin de la zone d'exportation dépasse la longueur de "
                   "l'enregistrement (A.TXT, ligne 2)"_w)},
      {"trifichier",
       {{"a", "A.TXT"}, {"c", "C.TXT"}, {"position", "1"}, {"largeur", "1"}},
       {{"A.TXT", ""}},
       std::string("Division par zéro (A.TXT)"_w)},
  };
  std::string panne;
  dialogue_.afficher = [&](const Affichage& affichage) {
    montre_ = affichage.texte;
    panne = affichage.panne;
  };
  for (const auto& [programme, options, entrees, attendue] : cas) {
    panne.clear();
    Essayer({programme, programme, options, entrees, Fin::Arret, {}});
    EXPECT_EQ(panne, attendue) << programme << "\n" << montre_;
  }
  const LigneDOptions deuxSexes = {{"lignes", "SEX"}, {"colonnes", "SEX"}};
  Essayer({"croise", "croise", deuxSexes, Enquete("SEX   2 2\r\n", "11\r\n"), Fin::Arret, {"(ENQ.POS, ligne 4)"}});
}

}  // namespace
}  // namespace quelvar
