#include "forms/programmes/capture/import/fimport.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>

#include "forms/bureauenq.h"
#include "forms/programmes/capture/import/fimportcsv.h"
#include "forms/programmes/capture/import/source.h"

using namespace quelvar::forms;

using essai::Bureau;
using essai::BureauDe;
using essai::Cliquer;
using essai::Etiquette;
using essai::Pilote;
using essai::Visible;

namespace {

// The form of the other sources, by the way that a user without a spreadsheet takes.
FImport& ParLesAutresSources(Bureau& bureau) {
  Cliquer(bureau.Demander<SourceImport>("mnuImport"), "BoutAutres");
  FImport* const forme = bureau.Forme<FImport>();
  if (forme == nullptr) throw std::runtime_error("BoutAutres shows no form");
  return *forme;
}

}  // namespace

TEST(FImport, SansSource) {
  BureauDe bureau(2, {{"autre.csv", "SEX\r\n1\r\n"}});
  FImport& forme = ParLesAutresSources(bureau);
  EXPECT_EQ(Etiquette(forme, "TextAide"),
            "Pas d'mportation d'un fichier dBase (*.DBF) ou d'un fichier de données (*.DAT) possible du fait de "
            "l'absence de fichiers.\nAnnulez ou prenez l'option d'importation d'un tableau de Burt.\n");
  Pilote pilote;
  Cliquer(forme, {"CheckTrg", "CheckBRT"});
  pilote.Cliquer("OK");
  Cliquer(forme, "Lancer");
  Cliquer(forme, "CheckTrg");
  pilote.Cliquer("OK");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(pilote.Vues(), (QStringList{"Vous ne pouvez prendre qu'une seule des options",
                                        "Vous devez définir le fichier Burt issu de SAS"}));
  EXPECT_FALSE(bureau.Existe("ENQ.IMP")) << "nothing was launched";
  bureau.Menu("mnuNiv1");
  EXPECT_FALSE(Visible(ParLesAutresSources(bureau), "FrOptions"));
}

TEST(FImport, DonneesSeules) {
  BureauDe bureau(1, {{"ENQ.DAT", "12\r\n31\r\n"}, {"ENQ.IMP", "un ancien rapport\r\n"}});
  FImport& forme = bureau.Demander<FImport>("mnuImport");
  const auto presence = [&] {
    QString presents;
    for (const char* nom : {"DBF", "DAT", "POS", "BRT", "CSV", "TXT", "IMP"}) {
      const QString dit = Etiquette(forme, ("Label" + std::string(nom)).c_str());
      EXPECT_TRUE(dit == "Présent" || dit == "Absent") << nom;
      if (dit == "Présent") presents += QString::fromLatin1(nom) + u' ';
    }
    return presents;
  };
  EXPECT_EQ(presence(), "DAT IMP ");
  EXPECT_EQ(Etiquette(forme, "TextAide"), "Importation d'un fichier dBase (*.DBF).\n");
  Cliquer(forme, "Lancer");
  EXPECT_EQ(bureau.Forme<FImport>(), nullptr);
  EXPECT_EQ(bureau.Lire("ENQ.POS"), "ENQ\r\n 2 \r\n001   1 3\r\n002   2 2\r\n");
  EXPECT_TRUE(bureau.Texte().contains("Question 002 Position    2    Code-max.   2\n   1     1\n   2     1\n"));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.individus, 2);
}

TEST(FImport, LesDonneesRemplaceesSontAnnoncees) {
  BureauDe bureau(1, {{"ENQ.DBF", ""}, {"ENQ.DAT", "12\r\n"}});
  EXPECT_TRUE(Etiquette(bureau.Demander<FImport>("mnuImport"), "TextAide").contains("seront remplacés"));
}

TEST(FImport, TableauDeBurt) {
  BureauDe bureau(2, {{"sas.txt", "SEX1Homme 4 0\r\nSEX2Femme 0 6\r\n"}});
  FImport& forme = ParLesAutresSources(bureau);
  Cliquer(forme, {"CheckBRT", "OptUtil"});
  EXPECT_TRUE(Etiquette(forme, "TextAide")
                  .contains("Dans PROC CORRESP;\n     format  Q1  formatQ1.  Q2  formatQ2  etc. ;\n"
                            "     ods  output   Burt=fichtemp ;\n"));
  Pilote pilote;
  const QString commande = CommandeMontree(pilote, forme);
  EXPECT_EQ(commande, "quelvar-batch --niveau 2 import-burt ENQ noms=util");
  pilote.Choisir(QString::fromStdString((bureau.Dossier() / "sas.txt").string()));
  Cliquer(forme, "BoutFichier");
  pilote.Taper("5");
  pilote.Cliquer("Non");
  pilote.Taper("10");
  pilote.Cliquer("Oui");
  Cliquer(forme, "Lancer");
  EXPECT_TRUE(pilote.Vues().value(3).startsWith("le nombre de questions est de 2 : est-ce cohérent ?"));
  EXPECT_EQ(bureau.Lire("ENQ.MOD"), "ENQ\r\n BRT=2 FMT=1 \r\nSEX1   Homme\r\nSEX2   Femme\r\n");
  EXPECT_EQ(bureau.Lire("ENQ.BRT"), "SEX140\r\nSEX206\r\n");
  EXPECT_EQ(bureau.Lire("ENQ.POS"), "ENQ\r\n 10 \r\n");
  EXPECT_TRUE(bureau.Texte().contains("Le tableau de burt sas.txt a été importé"));
}

TEST(Import, FormulaireSelonLesSources) {
  enum class Forme { Tableur, DBase, Aucune };
  struct Cas {
    const char* fichier;
    Forme forme;
  };
  for (const Cas& cas : {Cas{"ENQ.CSV", Forme::Tableur}, Cas{"enq.txt", Forme::Tableur}, Cas{"ENQ.DBF", Forme::DBase},
                         Cas{"ENQ.DAT", Forme::DBase}, Cas{"ENQ.ODS", Forme::Aucune}}) {
    SCOPED_TRACE(cas.fichier);
    Bureau bureau(1);
    bureau.Ecrire(cas.fichier, essai::kTableur);
    bureau.Ecrire("ENQ.POS", "x");  // too short: counts as absent
    bureau.Ouvrir();
    bureau.Menu("mnuImport");
    EXPECT_EQ(bureau.Forme<FImportCSV>() != nullptr, cas.forme == Forme::Tableur);
    EXPECT_EQ(bureau.Forme<FImport>() != nullptr, cas.forme == Forme::DBase);
    EXPECT_EQ(bureau.Forme<SourceImport>() != nullptr, cas.forme == Forme::Aucune) << "its files are offered";
  }
}

TEST(Import, AideEtEtatDesFichiers) {
  BureauDe bureau(1, {{"ENQ.CSV", essai::kTableur}, {"ENQ.DAT", "1\r\n"}});
  bureau.Menu("mnuImport");
  FImportCSV& forme = *bureau.Forme<FImportCSV>();
  const auto etat = [&](const char* nom) { return Etiquette(forme, nom); };
  EXPECT_EQ(etat("LabelCSV") + etat("LabelTXT") + etat("LabelDAT") + etat("LabelPOS"), "PrésentAbsentPrésentAbsent");
  auto& aide = Bureau::Dans<QPlainTextEdit>(forme, "TextAide");
  EXPECT_EQ(aide.toPlainText(),
            "Importation d'un fichier CSV (*.CSV) ou d'un fichier TXT (*.TXT) .\n"
            "Le nom du champ issu d'Excel  est repris uniquement dans le cas des champs de largeur 1, 2 ou 3. Les "
            "autres champs son conservés dans le fichier *.DAT mais non dans le fichier *.POS\n"
            "Attention les fichiers *.DAT et *.POS qui existent déjà seront remplacés du fait de l'importation du "
            "fichier CSV.\n");
  Cliquer(forme, "CheckTrg");
  EXPECT_TRUE(aide.toPlainText().endsWith("Dans ce cas, un fichier DAT est créé mais non un fichier POS.\n"));
  Cliquer(forme, "Lancer");
  EXPECT_FALSE(bureau.Existe("ENQ.POS"));
  EXPECT_TRUE(bureau.Lire("ENQ.DAT").starts_with("NUM")) << "the title line is data";
}
