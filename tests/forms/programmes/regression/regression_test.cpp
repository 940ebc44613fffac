// The coding of a regression by real clicks, and the choice of the questions of interest.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "forms/images/fenetredessin.h"
#include "forms/images/vuedessin.h"
#include "forms/pilote.h"
#include "forms/programmes/regression/choixvarint.h"
#include "forms/programmes/regression/modifmodr.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauDe;
using essai::Cliquer;
using essai::CliquerLigne;
using essai::Etiquette;
using essai::Lignes;
using essai::Taper;
using essai::Visible;

class FormesDeLaRegression : public testing::Test {
 protected:
  FormesDeLaRegression()
      : bureau_(2, {{"ENQ.POS", "ENQ\r\n 4 \r\nCIN   1 2 $Cinema$\r\nSEX   2 2 $Sexe$\r\nAGE   3 3\r\n"},
                    {"ENQ.DAT", "111\r\n212\r\n121\r\n223\r\n"},
                    {"ENQ.MOD",
                     "ENQ\r\n FMT=1\r\nCIN1   oui\r\nCIN2   non\r\nSEX1   Homme\r\nSEX2   Femme\r\n**\r\nX\r\n"}}) {}
  static std::string ArretVolontaire() { return "Arr\xEAt volontaire du programme\r\n"; }

  BureauDe bureau_;
};

TEST_F(FormesDeLaRegression, CodageParLesTroisEtapes) {
  ModifModR& forme = bureau_.Demander<ModifModR>("mnuModifModR");
  EXPECT_EQ(Lignes(forme, "ListPos"), (QStringList{"CIN", "SEX"}));
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("Suivre les étapes 1 à 3"));
  Cliquer(forme, "BoutEnreg");
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "*** Erreur ***\nIl n'y a aucune modalité explicative");

  CliquerLigne(forme, "ListPos", 0);
  CliquerLigne(forme, "Listmod", 0);
  EXPECT_TRUE(forme.ATravail());
  EXPECT_EQ(Lignes(forme, "Listmod"), (QStringList{"CIN1 Y oui", "CIN2   non"}));
  const QString avant = QString::fromStdString(bureau_.Lire("ENQ.MOD"));
  Cliquer(forme, "BoutEnreg");
  EXPECT_TRUE(Etiquette(forme, "TextMsg").contains("(un seul R par question)"));
  EXPECT_EQ(QString::fromStdString(bureau_.Lire("ENQ.MOD")), avant);

  Cliquer(forme, "BqExpliq");
  EXPECT_TRUE(Lignes(forme, "Listmod").isEmpty());
  CliquerLigne(forme, "ListPos", 1);
  essai::Pilote pilote;
  EXPECT_EQ(essai::CommandeMontree(pilote, forme), "(aucune : le codage d'une question n'est pas complet)");
  CliquerLigne(forme, "Listmod", 1);
  EXPECT_EQ(Lignes(forme, "ListRecap"), (QStringList{"CIN1 Y oui", "CIN2   non", "SEX1 X Homme", "SEX2 R Femme"}));
  CliquerLigne(forme, "ListRecap", 2);
  Taper(forme, "TextMod", "Hommes");
  Cliquer(forme, "BoutSuivant");
  EXPECT_EQ(essai::FaitCommeLaCommande(bureau_, pilote, forme, [&] { Cliquer(forme, "BoutEnreg"); }),
            "quelvar-batch --niveau 2 modifmodr ENQ expliquer=CIN1 reference=SEX2 intitule=SEX1=Hommes");
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"),
            "ENQ\r\n FMT=1\r\nCIN1 Y oui\r\nCIN2   non\r\nSEX1 X Hommes\r\nSEX2 R Femme\r\n**\r\nX\r\n");
  EXPECT_TRUE(bureau_.Texte().startsWith("Fin normale des modifications de modalités"));
  EXPECT_EQ(bureau_.Forme<ModifModR>(), nullptr);
}

TEST_F(FormesDeLaRegression, DeuxModalitesDUnNomNOntPasDeCommande) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n FMT=1\r\nCIN1   oui\r\nCIN1   non\r\n");
  ModifModR& forme = bureau_.Demander<ModifModR>("mnuModifModR");
  CliquerLigne(forme, "ListPos", 0);
  CliquerLigne(forme, "Listmod", 0);
  essai::Pilote pilote;
  EXPECT_EQ(essai::CommandeMontree(pilote, forme), "(aucune : deux modalités ont le même nom)");
}

TEST_F(FormesDeLaRegression, UnAvertissementLaisseLaFormeOuverte) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n FMT=1\r\nCIN1 Y oui\r\nCIN2 S non\r\nSEX1 R Homme\r\n");
  ModifModR& forme = bureau_.Demander<ModifModR>("mnuModifModR");
  Cliquer(forme, "BoutEnreg");
  EXPECT_FALSE(forme.ATravail());
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("*** Avertissement ***\nIncohérence globale"));
  Cliquer(forme, "BoutAide");
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("Pour faire une régression"));
  Cliquer(forme, "BoutQuitter");
  EXPECT_EQ(bureau_.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_EQ(bureau_.Lire("ENQ.PRT"), ArretVolontaire()) << "the file was saved";
}

TEST_F(FormesDeLaRegression, QuitterSansRienEnregistrerNeTouchePasLesFichiers) {
  bureau_.Ecrire("ENQ.PRT", "d'avant\r\n");
  Cliquer(bureau_.Demander<ModifModR>("mnuModifModR"), "BoutQuitter");
  EXPECT_EQ(bureau_.Texte(), "Arrêt volontaire du programme\n");
  EXPECT_EQ(bureau_.Lire("ENQ.PRT"), "d'avant\r\n");
}

TEST_F(FormesDeLaRegression, UnIntituleQueLesFichiersNePeuventPorterEstRefuse) {
  ModifModR& forme = bureau_.Demander<ModifModR>("mnuModifModR");
  CliquerLigne(forme, "ListRecap", 0);
  Bureau::Dans<QLineEdit>(forme, "TextMod").setFocus();
  QKeyEvent touche(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("日"));
  QApplication::sendEvent(&Bureau::Dans<QLineEdit>(forme, "TextMod"), &touche);
  Cliquer(forme, "BoutSuivant");
  EXPECT_TRUE(Etiquette(forme, "TextMsg").contains("\"日\", n'existe pas dans la page de code"))
      << Etiquette(forme, "TextMsg").toStdString();
  EXPECT_EQ(Lignes(forme, "ListRecap").front(), "CIN1   oui");
  EXPECT_TRUE(forme.ATravail());
  Taper(forme, "TextMod", "œuvre à 3 €");
  Cliquer(forme, "BoutSuivant");
  EXPECT_EQ(Lignes(forme, "ListRecap").front(), "CIN1   œuvre à 3 €");
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("Suivre les étapes"));
}

TEST_F(FormesDeLaRegression, VariablesDInteret) {
  ChoixVarInt& forme = bureau_.Demander<ChoixVarInt>("mnuVarInt");
  EXPECT_EQ(forme.windowTitle(), "Choix de la (des) Variable(s) d'intérêt");
  Cliquer(forme, "BoutLancer");
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "Pas de questions définies");
  Cliquer(forme, "BoutAll");
  EXPECT_TRUE(Lignes(forme, "ListVar1").isEmpty());
  Cliquer(forme, "BoutEffacer");
  CliquerLigne(forme, "ListVar1", 1);
  Cliquer(forme, "BoutActPlus");
  EXPECT_EQ(Lignes(forme, "ListVar2").size(), 1);
  Cliquer(forme, "Opt2");
  essai::Pilote pilote;
  EXPECT_EQ(essai::FaitCommeLaCommande(bureau_, pilote, forme, [&] { Cliquer(forme, "BoutLancer"); }),
            "quelvar-batch --niveau 2 varint ENQ questions=SEX edition=longue");
  EXPECT_TRUE(bureau_.Texte().contains("Edition du profil de la question SEX Sexe\n\nNom    PEM  Nom long"));
  EXPECT_TRUE(bureau_.Existe("ENQ.BRT"));
}

TEST_F(FormesDeLaRegression, LesProgrammesSansFormePartentAussitot) {
  bureau_.Menu("mnuAnatab");
  EXPECT_TRUE(bureau_.Texte().contains("Le tableau de codage logique ENQ.CDG n'existe pas"));
  bureau_.Menu("mnuReglin");
  EXPECT_TRUE(bureau_.Texte().contains("*** Le tableau de données ENQ.CDG n'existe pas"));
}

// Homme: 2 of 3 go, Femme: 1 of 3. The picture stands beside the report and is saved in the three formats for papers.
TEST_F(FormesDeLaRegression, LImageDesEffetsSuitLeRapport) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n FMT=1\r\nCIN1 Y oui\r\nCIN2   non\r\nSEX1 R Homme\r\nSEX2 X Femme\r\n");
  bureau_.Ecrire("ENQ.CDG", "   11010\r\n   21010\r\n   30110\r\n   41001\r\n   50101\r\n   60101\r\n");
  bureau_.Menu("mnuAnatab");
  EXPECT_TRUE(bureau_.Texte().endsWith("Fin normale du programme\n"));
  auto* image = bureau_.Forme<FenetreDessin>();
  ASSERT_NE(image, nullptr);
  EXPECT_FALSE(Visible(*image, "ListPages"));
  EXPECT_FALSE(Bureau::Dans<VueDessin>(*image, "Pict2").Contenu().Formes().empty());
  const std::pair<const char*, const char*> formats[] = {{"E.svg", "<"}, {"E.png", "\x89PNG"}, {"E.pdf", "%PDF"}};
  for (const auto& [nom, debut] : formats) {
    essai::Pilote pilote;
    pilote.Choisir(QString::fromStdString((bureau_.Dossier() / nom).string()));
    pilote.Cliquer("OK");
    Cliquer(*image, "BoutonEnregSous");
    EXPECT_TRUE(bureau_.Lire(nom).starts_with(debut)) << nom;
    EXPECT_EQ(image->windowTitle(), nom);
  }
  // A second run shows its picture in place of the first one.
  bureau_.Menu("mnuAnatab");
  EXPECT_FALSE(image->isVisible());
  ASSERT_NE(bureau_.Forme<FenetreDessin>(), nullptr);
  EXPECT_EQ(bureau_.Forme<FenetreDessin>()->windowTitle(), "Graphique non encore enregistré");
}

TEST_F(FormesDeLaRegression, LesProfilsSeMontrentUnAUn) {
  ChoixVarInt& forme = bureau_.Demander<ChoixVarInt>("mnuVarInt");
  Cliquer(forme, {"BoutAll", "BoutLancer"});
  auto* image = bureau_.Forme<FenetreDessin>();
  ASSERT_NE(image, nullptr);
  auto& pages = Bureau::Dans<QComboBox>(*image, "ListPages");
  ASSERT_EQ(pages.count(), 3);
  EXPECT_EQ(pages.itemText(1), "Profil de SEX Sexe");
  const auto premier = [&] { return Bureau::Dans<VueDessin>(*image, "Pict2").Contenu().Formes().front().texte; };
  EXPECT_EQ(premier(), "Profil de CIN Cinema");
  pages.setFocus();
  QTest::keyClick(&pages, Qt::Key_Down);
  EXPECT_EQ(premier(), "Profil de SEX Sexe");
}

}  // namespace
