// "Voir la commande": the line that a form shows, run by quelvar-batch on the files as the form found them, leaves the
// same bytes as the form.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using namespace essai;

class BureauDEnquete : public Bureau {
 public:
  BureauDEnquete() : Bureau(2) {
    Ecrire("ENQ.POS", "ENQ\r\n 6 \r\nSEX   1 2 $Sexe$ &ACT&\r\nAGE   212 $Age$\r\nLEC   4 3 $Lecture$ &ACT&\r\n");
    Ecrire("ENQ.DAT", "1 31\r\n2122\r\n1 73\r\n2 11\r\n1 42\r\n2 63\r\n");
    Ecrire("ENQ.MOD",
           "ENQ\r\n BRT=5 FMT=1 \r\nSEX1   Homme\r\nSEX2   \r\nLEC1   Peu\r\nLEC2 S \r\nLEC3   \r\n**\r\nAGE1   "
           "Jeune\r\n");
    Ecrire("ENQ.BRT", "SEX130111\r\nSEX203111\r\nLEC111200\r\nLEC211020\r\nLEC311002\r\n");
    Ouvrir();
  }
};

struct CasDeCommande {
  const char* nom;
  const char* entree;
  const char* lancer;
  void (*regler)(const QWidget& forme, Pilote& pilote);
  const char* contient;           // of the line
  const char* reponse = nullptr;  // to the box of the launch
};

void Intituler(const QWidget& forme, int ligne, const QString& texte) {
  CliquerLigne(forme, "ListRecap", ligne);
  Taper(forme, "TextMod", texte);
}

const CasDeCommande kCas[] = {
    {"Triapl", "mnuTriapl", "BoutonTriapl",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, {"CaseMod", "BoutNRNon", "CaseVerif"});
     },
     "nonreponses=exclues"},
    {"Posmod", "mnuPosmod", "BoutLancer",
     [](const QWidget& f, Pilote&) {
       CliquerLigne(f, "ListVar1", 0);
       Cliquer(f, {"BoutSupPlus", "CaseCodZ", "CaseCodLog", "CaseSup"});
     },
     "individus=oui"},
    {"Ecapem", "mnuEcapem", "Lancer",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, {"ChkCompact", "ChkTab"});
     },
     "ecapem"},
    {"Anecar", "mnuAnecar", "BoutEnreg",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, {"optDetails", "Inv1"});
     },
     "inversions=1"},
    {"Croise", "mnuCroise", "BoutLancerTri",
     [](const QWidget& f, Pilote&) {
       CliquerLigne(f, "ListVar1", 0);
       Cliquer(f, "BoutLignePlus");
       CliquerLigne(f, "ListVar1", 2);
       Cliquer(f, {"BoutColPlus", "EditCompact", "BoutOrdreAFC"});
     },
     "lignes=SEX"},
    {"NomQuest", "mnuNomQuest", "BoutEnreg",
     [](const QWidget& f, Pilote&) {
       Intituler(f, 1, "L'age en ans");
       Intituler(f, 2, "");
     },
     "intitule="},
    {"ModifMod", "mnuModifMod", "BoutEnreg",
     [](const QWidget& f, Pilote&) {
       CliquerLigne(f, "ListSuppl", 0);
       CliquerLigne(f, "ListSuppl", 3);
       Intituler(f, 1, "Une femme");
     },
     "actives=LEC2"},
    {"NomeMod", "mnuNomMod", "BoutEnreg",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, "BoutLancer");
       CliquerLigne(f, "ListQuest", 0);
       Cliquer(f, {"BoutPlus", "CaseCodZ", "BoutLancer"});
       Intituler(f, 2, "Une femme");
       Cliquer(f, "BoutSauve");
     },
     "lancer=oui"},
    {"NomeModOptionB", "mnuNomMod", "BoutEnreg",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, "BoutModif");
       Intituler(f, 5, "Quinze ans");
     },
     "intitule="},
    {"PrepRecod", "mnuPrepRecod", "BoutEnreg",
     [](const QWidget& f, Pilote& pilote) {
       auto& questions = Bureau::Dans<QListWidget>(f, "ListPos");
       questions.setCurrentRow(0);
       Cliquer(f, {"ValidPond", "OptEffMax", "OptExcl", "ChoixFiltre"});
       auto& codes = Bureau::Dans<QComboBox>(f, "ComboGen");
       codes.hidePopup();
       emit codes.activated(codes.findData(2));
       pilote.Taper("CUL");
       Cliquer(f, {"OptVITNouv", "ChoixVIT"});
       auto& elements = Bureau::Dans<QComboBox>(f, "ComboVIT");
       elements.hidePopup();
       emit elements.activated(elements.findData(1));
       questions.setCurrentRow(1);
       Bureau::Dans<QLineEdit>(f, "TextMod").setText("1-6=1/7-12=2");
     },
     "filtre=excl:SEX=2"},
    {"ProfilMod", "mnuProfil", "BoutEnreg",
     [](const QWidget& f, Pilote&) {
       CliquerLigne(f, "ListSuppl", 0);
       Cliquer(f, {"Detail", "NonTri"});
       Intituler(f, 1, "Une femme");
     },
     "modalites=SEX1"},
    {"ExportCsv", "mnexportCSV", "Lancer",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, {"OptTab", "OptCodes"});
     },
     "separateur=tabulation"},
    {"Exportation", "mnuUtil", "Lancer",
     [](const QWidget& f, Pilote& pilote) {
       Cliquer(f, "OptExport");
       pilote.Choisir("ENQ.DAT");
       Cliquer(f, "CmdFichA");
       pilote.Choisir("C.TXT");
       Cliquer(f, "CmdFichC");
       Taper(f, "TextDebut", "2");
       Taper(f, "TextFin", "3");
       Cliquer(f, "OptExport2");
     },
     "mode=complementaire"},
    {"Fusion", "mnuUtil", "Lancer",
     [](const QWidget& f, Pilote& pilote) {
       Cliquer(f, {"OptFusion", "OptAppend"});
       pilote.Choisir("ENQ.DAT");
       Cliquer(f, "CmdFichA");
       pilote.Choisir("ENQ.BRT");
       Cliquer(f, "CmdFichB");
       pilote.Choisir("C.TXT");
       Cliquer(f, "CmdFichC");
     },
     "type=append"},
    {"Tri", "mnuUtil", "Lancer",
     [](const QWidget& f, Pilote& pilote) {
       Cliquer(f, "OptTri");
       pilote.Choisir("ENQ.DAT");
       Cliquer(f, "CmdFichA");
       pilote.Choisir("C.TXT");
       Cliquer(f, "CmdFichC");
       Taper(f, "TextPosTri", "2");
       Taper(f, "TextLargTri", "2");
       Cliquer(f, {"Decroissant", "CheckTrim"});
     },
     "ordre=decroissant rogner=oui"},
    {"Caracteres", "mnuUtil", "Lancer",
     [](const QWidget& f, Pilote& pilote) {
       Cliquer(f, "OptHexDump");
       pilote.Choisir("ENQ.DAT");
       Cliquer(f, "CmdFichA");
     },
     "caracteres ENQ a=ENQ.DAT"},
    {"Gendat", "mnuUtil", "Lancer", [](const QWidget& f, Pilote&) { Cliquer(f, "OptGendat"); }, "gendat ENQ", "Oui"},
    {"Inversion", "mnuUtil", "Lancer", [](const QWidget& f, Pilote&) { Cliquer(f, "OptInvers"); }, "inversion ENQ",
     "OK"},
    {"InversionEnTriangle", "mnuUtil", "Lancer",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, {"OptInvers", "CheckTrg"});
     },
     "trg=oui", "OK"},
    {"ExamenDUnTableau", "mnuUtil", "Lancer",
     [](const QWidget& f, Pilote&) {
       Cliquer(f, {"OptEcapem", "OptNoms", "OptCour4"});
     },
     "ecapem ENQ"},
};

class VoirLaCommande : public testing::TestWithParam<CasDeCommande> {};

TEST_P(VoirLaCommande, FaitLesMemesOctetsQueLeFormulaire) {
  const CasDeCommande& cas = GetParam();
  BureauDEnquete bureau;
  const CopieDuDossier avant(bureau);
  Forme& forme = bureau.Demander<Forme>(cas.entree);
  Pilote pilote;
  cas.regler(forme, pilote);
  const QString commande = FaitCommeLaCommande(avant, bureau, pilote, forme, [&] {
    if (cas.reponse != nullptr) pilote.Cliquer(cas.reponse);
    Cliquer(forme, cas.lancer);
  });
  EXPECT_TRUE(commande.contains(cas.contient)) << commande.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Formes, VoirLaCommande, testing::ValuesIn(kCas),
                         [](const auto& cas) { return std::string(cas.param.nom); });

}  // namespace
