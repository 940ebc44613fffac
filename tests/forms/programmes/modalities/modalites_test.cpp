// The forms that make modalities and name things: choice of the questions, status and labels, names of questions.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "core/texte/texte.h"
#include "forms/pilote.h"
#include "forms/programmes/modalities/choixposmod.h"
#include "forms/programmes/modalities/modifmod.h"
#include "forms/programmes/modalities/nomemod.h"
#include "forms/programmes/modalities/nomquest.h"

using namespace quelvar::forms;

namespace {

using namespace essai;
using namespace quelvar;

class FormesDesModalites : public testing::Test {
 protected:
  FormesDesModalites() {
    bureau_.Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$ &ACT&\r\nAGE   2 3 $Age$ &SUP&\r\nCSP   3 1\r\n");
    bureau_.Ecrire("ENQ.DAT", "111\r\n221\r\n130\r\n");
  }
  template <class F>
  F& Ouvrir(const char* menu) {
    return bureau_.Demander<F>(menu);
  }
  Bureau bureau_{2};
};

TEST_F(FormesDesModalites, LesMarquesRemplissentLesListesEtLesQuestionsSeDeplacent) {
  auto& forme = Ouvrir<ChoixPosmod>("mnuPosmod");
  EXPECT_EQ(Lignes(forme, "ListVar1"), QStringList{"CSP   3  1 "});
  EXPECT_EQ(Lignes(forme, "ListVar2"), QStringList{"SEX   1  2 Sexe"});
  EXPECT_EQ(Lignes(forme, "ListVar3"), QStringList{"AGE   2  3 Age"});
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"),
            "Le nombre de modalités actives est de 3\nLe nombre de modalités supplémentaires est de 4");
  CliquerLigne(forme, "ListVar1", 0);
  Cliquer(forme, "BoutSupPlus");
  CliquerLigne(forme, "ListVar3", 0);
  Cliquer(forme, "BoutSupMoins");
  EXPECT_EQ(Lignes(forme, "ListVar1"), QStringList{"AGE   2  3 Age"});
  EXPECT_EQ(Lignes(forme, "ListVar3"), QStringList{"CSP   3  1 "});
  Cliquer(forme, "CaseCodZ");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"),
            "Le nombre de modalités actives est de 2\nLe nombre de modalités supplémentaires est de 1");
  Cliquer(forme, "BoutLancer");
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n")) << bureau_.Texte().toStdString();
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"), "ENQ\r\n BRT=3 FMT=1 \r\nSEX1   \r\nSEX2   \r\nCSP1 S \r\n");
  EXPECT_EQ(bureau_.Lire("ENQ.POS"), "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$ &ACT&\r\nAGE   2 3 $Age$\r\nCSP   3 1 &SUP&\r\n");
  EXPECT_EQ(bureau_.Forme<ChoixPosmod>(), nullptr);
}

TEST_F(FormesDesModalites, LesRefusSontDitsSansLancer) {
  auto& forme = Ouvrir<ChoixPosmod>("mnuPosmod");
  EXPECT_FALSE(Visible(forme, "CaseSup")) << "there is no earlier .MOD";
  EXPECT_FALSE(Visible(forme, "FrmIndiv"));
  Cliquer(forme, "CaseCodLog");
  EXPECT_FALSE(Visible(forme, "FrmPos"));
  Cliquer(forme, "CaseNomIndiv");
  Cliquer(forme, "BoutEffacer");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Pas de position de début définie");
  Taper(forme, "TextBoxDebut", "2");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Pas de largeur du numéro définie");
  Taper(forme, "TextBoxLargeur", "2");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Pas de modalités définies");
  CliquerLigne(forme, "ListVar1", 0);
  Cliquer(forme, "BoutSupPlus");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Pas de modalités actives définies");
  EXPECT_FALSE(bureau_.Existe("ENQ.MOD"));
  CliquerLigne(forme, "ListVar1", 1);
  Cliquer(forme, "BoutActPlus");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(bureau_.Lire("ENQ.CDG"), "11  01010\r\n21  01001\r\n30  10010\r\n");
}

TEST_F(FormesDesModalites, LaRegressionNAQuUneListe) {
  auto& forme = Ouvrir<ChoixPosmod>("mnuPosmod2");
  EXPECT_EQ(forme.windowTitle(), "Choix des questions pour créer des modalités");
  EXPECT_EQ(Etiquette(forme, "TitreLignes").remove('&'), "Questions choisies");
  EXPECT_EQ(Lignes(forme, "ListVar2"), (QStringList{"SEX   1  2 Sexe", "AGE   2  3 Age"}));
  for (const char* cache : {"CaseCodLog", "ListVar3", "BoutSupPlus", "BoutSupMoins", "FrmIndiv", "CaseSup"})
    EXPECT_FALSE(Visible(forme, cache)) << cache;
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Le nombre de modalités est de 7");
  Cliquer(forme, "CaseCodZ");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"),
            "*** Attention ***\nCette option suppose qu'il n'y ait pas de non-réponses ou qu'elles aient été recodées. "
            "Est-ce bien le cas ?\nLe nombre de modalités est de 5");
  CliquerLigne(forme, "ListVar2", 1);
  Cliquer(forme, "BoutActMoins");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Le nombre de modalités est de 2");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(bureau_.Lire("ENQ.MOD").substr(0, 40), "ENQ\r\n BRT=1 LIGN=5 LSUP=3 COL=2 FMT=1 \r\n");
}

TEST_F(FormesDesModalites, AuNiveauUnLesOptionsSontCacheesEtQuitterFinitLaDemande) {
  bureau_.Ecrire("qvr2.ini", "ENQ\r\n 1 \r\n");
  auto& forme = Ouvrir<ChoixPosmod>("mnuPosmod");
  EXPECT_FALSE(Visible(forme, "FrmOptions"));
  Cliquer(forme, "BoutQuitter");
  EXPECT_TRUE(bureau_.Texte().endsWith("Il y a  3  individus\n")) << bureau_.Texte().toStdString();
  EXPECT_FALSE(bureau_.Existe("ENQ.MOD"));
}

TEST_F(FormesDesModalites, SansDonneesIlNYAQueLeRapport) {
  std::filesystem::remove(bureau_.Dossier() / "ENQ.DAT");
  bureau_.Ouvrir();
  for (const char* menu : {"mnuPosmod", "mnuPosmod2", "mnuNomMod"}) {
    bureau_.Menu(menu);
    EXPECT_EQ(bureau_.Texte(),
              "Le fichier ENQ.DAT n'existe pas\nArret du programme du a l'absence d'un ou de plusieurs fichiers\n");
  }
  EXPECT_EQ(bureau_.Forme<ChoixPosmod>(), nullptr);
  EXPECT_EQ(bureau_.Forme<NomeMod>(), nullptr);
}

TEST_F(FormesDesModalites, StatutEtIntitulesDesModalites) {
  const std::string debut = "ENQ\r\n BRT=3 FMT=1 \r\nSEX0 S \r\nSEX1   Homme\r\nSEX2   \r\n";
  bureau_.Ecrire("ENQ.MOD", debut + "**\r\nXXX1\r\n");
  auto& forme = Ouvrir<ModifMod>("mnuModifMod");
  auto& statuts = Bureau::Dans<QListWidget>(forme, "ListSuppl");
  EXPECT_EQ(statuts.item(0)->checkState(), Qt::Checked);
  CliquerLigne(forme, "ListSuppl", 0);
  CliquerLigne(forme, "ListSuppl", 2);
  EXPECT_EQ(Lignes(forme, "ListRecap"), (QStringList{"SEX0   ", "SEX1   Homme", "SEX2 S "}));
  QTest::keyClick(&statuts, Qt::Key_Space);
  QTest::keyClick(&statuts, Qt::Key_Space);
  EXPECT_EQ(statuts.item(2)->checkState(), Qt::Checked);

  CliquerLigne(forme, "ListRecap", 1);
  EXPECT_EQ(Bureau::Dans<QLineEdit>(forme, "TextMod").text(), "Homme");
  Taper(forme, "TextMod", "Hommes, un intitulé de plus de 25 caractères");
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, "TextMod"), Qt::Key_Return);
  EXPECT_EQ(Bureau::Dans<QListWidget>(forme, "ListRecap").currentRow(), 2);
  Taper(forme, "TextMod", "Femmes");
  CliquerLigne(forme, "ListRecap", 0);
  Taper(forme, "TextMod", "NR");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(DepuisUtf8(bureau_.Texte().toStdString()),
            "Fin normale des modifications de modalités, passer à l'étape suivante\n"_w);
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"),
            "ENQ\r\n BRT=3 FMT=1 \r\nSEX0   NR\r\nSEX1   Hommes, un intitulé de plus de 25 caractères\r\n"
            "SEX2 S Femmes\r\n**\r\nXXX1\r\n"_w);
  EXPECT_EQ(bureau_.Forme<ModifMod>(), nullptr);
}

TEST_F(FormesDesModalites, SansModalitesLaFormeResteAvecSonMessage) {
  auto& forme = Ouvrir<ModifMod>("mnuModifMod");
  EXPECT_EQ(Etiquette(forme, "TextMsg"),
            "*** Erreur ***\nLe fichier de modalités n'a pas été créé auparavant : revenir à l'étape antérieure en "
            "utilisant la touche 'Annuler'");
  EXPECT_TRUE(Lignes(forme, "ListRecap").isEmpty());
  QTest::keyClick(&forme, Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_EQ(bureau_.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_FALSE(bureau_.Existe("ENQ.MOD"));
}

TEST_F(FormesDesModalites, UneFormeFermeeParLeProgrammeNEcritRien) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n\r\nSEX1\r\n");
  Ouvrir<ModifMod>("mnuModifMod");
  bureau_.Fenetre().ServicesDesFormes().formes.Fermer();
  QCoreApplication::processEvents();
  EXPECT_FALSE(bureau_.Existe("ENQ.PRT"));
}

TEST_F(FormesDesModalites, NomsDesQuestions) {
  auto& forme = Ouvrir<NomQuest>("mnuNomQuest");
  EXPECT_EQ(Lignes(forme, "ListRecap"), (QStringList{"SEX Sexe", "AGE Age", "CSP "}));
  CliquerLigne(forme, "ListRecap", 2);
  Taper(forme, "TextMod", QString(31, 'x'));
  EXPECT_EQ(Bureau::Dans<QLineEdit>(forme, "TextMod").text(), QString(30, 'x'));
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "max=30 caractères");
  Taper(forme, "TextMod", "5$");
  CliquerLigne(forme, "ListRecap", 0);
  EXPECT_EQ(Bureau::Dans<QListWidget>(forme, "ListRecap").currentRow(), 2) << "a refused name stays in the box";
  EXPECT_NE(Etiquette(forme, "TextMsg"), "");
  Taper(forme, "TextMod", "Profession");
  Cliquer(forme, "BoutSauve");
  const std::string sauve =
      "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$ &ACT&\r\nAGE   2 3 $Age$ &SUP&\r\nCSP   3 1 $Profession$\r\n";
  EXPECT_EQ(bureau_.Lire("ENQ.POS"), sauve);
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, "TextMod"), Qt::Key_Return);
  EXPECT_EQ(Bureau::Dans<QListWidget>(forme, "ListRecap").currentRow(), 0) << "the first line follows the last";
  Taper(forme, "TextMod", "Genre");
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(bureau_.Texte(), "Les intitulés des questions ont été sauvegardés\n");
  EXPECT_NE(bureau_.Lire("ENQ.POS").find("SEX   1 2 $Genre$ &ACT&"), std::string::npos);
}

// What a name shared by two cannot say to the companion has no command; the others of the file have theirs.
TEST_F(FormesDesModalites, UnNomPorteDeuxFoisNAPasDeCommande) {
  bureau_.Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2 $Sexe$\r\nAGE   2 3 $Age$\r\nSEX   3 1\r\n");
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n BRT=3 FMT=1 \r\nSEX1   \r\nAGE1   \r\nSEX1   \r\n");
  Pilote pilote;
  auto& questions = Ouvrir<NomQuest>("mnuNomQuest");
  CliquerLigne(questions, "ListRecap", 1);
  Taper(questions, "TextMod", "Age revolu");
  EXPECT_EQ(CommandeMontree(pilote, questions), "quelvar-batch --niveau 2 nomquest ENQ 'intitule=AGE=Age revolu'");
  CliquerLigne(questions, "ListRecap", 2);
  Taper(questions, "TextMod", "Autre");
  EXPECT_EQ(CommandeMontree(pilote, questions), "(aucune : deux questions ont le même nom)");
  Cliquer(questions, "BoutEnreg");
  auto& modalites = Ouvrir<ModifMod>("mnuModifMod");
  CliquerLigne(modalites, "ListSuppl", 1);
  EXPECT_EQ(CommandeMontree(pilote, modalites), "quelvar-batch --niveau 2 modifmod ENQ supplementaires=AGE1");
  CliquerLigne(modalites, "ListSuppl", 2);
  EXPECT_EQ(CommandeMontree(pilote, modalites), "(aucune : deux modalités ont le même nom)");
}

TEST_F(FormesDesModalites, CreerDesModalitesPuisLesNommer) {
  auto& forme = Ouvrir<NomeMod>("mnuNomMod");
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Le nombre de modalités prévu est de 3");
  CliquerLigne(forme, "ListVar2", 0);
  Cliquer(forme, "BoutMoins");
  Cliquer(forme, "BoutLancer");
  auto& guide = Bureau::Dans<QPlainTextEdit>(forme, "TextMsg");
  EXPECT_EQ(guide.toPlainText(), "Attention : pas de modalités définies");
  CliquerLigne(forme, "ListQuest", 2);
  Cliquer(forme, "BoutPlus");
  EXPECT_TRUE(guide.toPlainText().startsWith("Vous pouvez éliminer de votre choix"));
  EXPECT_EQ(Etiquette(forme, "TitreNbPos"), "Le nombre de modalités prévu est de 2");
  Cliquer(forme, "BoutLancer");
  EXPECT_TRUE(guide.toPlainText().startsWith("Cliquez maintenant sur la modalité"));
  EXPECT_EQ(Lignes(forme, "ListRecap"), (QStringList{"CSP0   NonRéponse", "CSP1   "}));
  CliquerLigne(forme, "ListRecap", 1);
  Taper(forme, "TextMod", "Cadre");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(Lignes(forme, "ListRecap").size(), 2) << "a second creation makes no doubles";
  Cliquer(forme, "BoutSauve");
  Cliquer(forme, "BoutModif");
  EXPECT_TRUE(guide.toPlainText().startsWith("Option B : la liste de toutes les modalités"));
  EXPECT_EQ(Lignes(forme, "ListRecap"), (QStringList{"CSP0   NonRéponse", "CSP1   Cadre"})) << "what was typed";
  Cliquer(forme, "BoutEnreg");
  const QString rapport = bureau_.Texte();
  EXPECT_TRUE(rapport.startsWith("          QUELVAR Version 5.3")) << rapport.toStdString();
  EXPECT_TRUE(
      rapport.endsWith("Il y a  3  individus\n\nFin normale du programme\n\nFin normale du programme\n"
                       "Les intitulés des questions ont été sauvegardés\n"))
      << rapport.toStdString();
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"), "ENQ\r\n BRT=2 FMT=0 \r\nCSP0   NonRéponse\r\nCSP1   Cadre\r\n**\r\n"_w);
}

TEST_F(FormesDesModalites, UnTableauQuiNEstPlusCeluiDesModalitesEstDit) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n BRT=3 FMT=1 \r\nSEX0 S \r\nSEX1 S Homme\r\nSEX2   \r\n");
  bureau_.Ecrire("ENQ.BRT", "SEX0000\r\nSEX1020\r\nSEX2001\r\n");
  auto& forme = Ouvrir<NomeMod>("mnuNomMod");
  auto& guide = Bureau::Dans<QPlainTextEdit>(forme, "TextMsg");
  Cliquer(forme, "BoutLancer");
  EXPECT_TRUE(guide.toPlainText().startsWith("Cliquez maintenant"));
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"), "ENQ\r\n BRT=3 FMT=1 \r\nSEX0 S \r\nSEX1 S Homme\r\nSEX2   \r\n**\r\n");
  CliquerLigne(forme, "ListQuest", 0);
  Cliquer(forme, {"BoutPlus", "BoutLancer"});
  EXPECT_TRUE(guide.toPlainText().startsWith("Le tableau ENQ.BRT n'est plus celui des modalités de ENQ.MOD"));
}

TEST_F(FormesDesModalites, LOptionBEstDuNiveauDeux) {
  bureau_.Ecrire("qvr2.ini", "ENQ\r\n 1 \r\n");
  EXPECT_FALSE(Visible(Ouvrir<NomeMod>("mnuNomMod"), "BoutModif"));
  bureau_.Menu("mnuNiv2");
  auto& forme = Ouvrir<NomeMod>("mnuNomMod");
  Cliquer(forme, "BoutModif");
  EXPECT_EQ(Bureau::Dans<QPlainTextEdit>(forme, "TextMsg").toPlainText(),
            "*** Attention ***\nLe fichier des noms de modalités n'existe pas encore");
}

TEST_F(FormesDesModalites, WhatIsNamedGoesToTheGenericOfTheForm) {
  constexpr const char* autre = "AUTRE\r\n 1 \r\nREV   1 9\r\n";
  bureau_.Ecrire("AUTRE.POS", autre);
  auto& forme = Ouvrir<NomQuest>("mnuNomQuest");
  CliquerLigne(forme, "ListRecap", 2);
  Taper(forme, "TextMod", "Profession");
  bureau_.Fenetre().ServicesDesFormes().adopterGenerique("AUTRE");  // as a program does
  Cliquer(forme, "BoutSauve");
  EXPECT_EQ(bureau_.Lire("AUTRE.POS"), autre);
  EXPECT_TRUE(QString::fromStdString(bureau_.Lire("ENQ.POS")).contains("$Profession$"));
  EXPECT_EQ(Lignes(Ouvrir<NomQuest>("mnuNomQuest"), "ListRecap").size(), 1) << "opened anew on the present generic";
}

}  // namespace
