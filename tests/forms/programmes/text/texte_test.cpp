// The forms of the textual data, one after the other on one text as a user takes them.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QTest>
#include <tuple>

#include "forms/pilote.h"
#include "forms/programmes/text/concord.h"
#include "forms/programmes/text/preptext.h"
#include "forms/programmes/text/saisiemot.h"
#include "forms/programmes/text/suplmot.h"
#include "forms/programmes/text/tabmot.h"
#include "forms/programmes/text/tabmotagreg.h"

using namespace quelvar::forms;

namespace {

using namespace essai;

class FormesDuTexte : public testing::Test {
 protected:
  FormesDuTexte() {
    bureau_.Ecrire("ENQ.TXT", "1Le travail, bien s\xFBr\r\n2travailler et rire*\r\n1Rire au travail\r\n");
    bureau_.Ouvrir();
  }

  void DoubleCliquer(const QWidget& forme, const char* nom, int ligne, Qt::KeyboardModifiers touche = {}) {
    auto& liste = Bureau::Dans<QListWidget>(forme, nom);
    const QRect place = liste.visualItemRect(liste.item(ligne));
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, touche, place.center());
    QTest::mouseDClick(liste.viewport(), Qt::LeftButton, touche, place.center());
  }

  Concord* Concordance() {
    auto* forme = bureau_.Forme<Concord>();
    if (forme == nullptr) throw std::runtime_error("no concordance is shown");
    return forme;
  }

  Bureau bureau_{2};
  Pilote pilote_;
};

TEST_F(FormesDuTexte, DUnTexteAUneTableDontDesLignesSontReunies) {
  auto& preparation = bureau_.Demander<PrepText>("mnuPrepText");
  EXPECT_TRUE(Etiquette(preparation, "TextAide").startsWith("Le présent programme, facultatif, permet :"));
  Cliquer(preparation, "ChkMin");
  EXPECT_EQ(Etiquette(preparation, "TextAide"), "Cette option transforme les minuscules en majuscules. ");
  Cliquer(preparation, "ChkMin");
  FaitCommeLaCommande(bureau_, pilote_, preparation, [&] { Cliquer(preparation, "BtLancer"); });
  EXPECT_EQ(bureau_.Lire("ENR.txt"), "1le travail  bien sur\r\n2travailler et rire*\r\n1rire au travail\r\n");
  EXPECT_TRUE(bureau_.Texte().endsWith("    le nouveau est désormais : ENR\nFin normale du programme\n"));

  auto& decoupage = bureau_.Demander<SaisieMot>("mnuImpMot");
  EXPECT_TRUE(Etiquette(decoupage, "Verif").contains("1le travail  bien sur"));
  EXPECT_FALSE(Visible(decoupage, "FrMots"));
  pilote_.Cliquer("OK");
  Cliquer(decoupage, "CbLancer");
  EXPECT_EQ(pilote_.Vues().last(), "En étape 1, il faut indiquer une position non nulle");
  Taper(decoupage, "TbPos", "1");
  pilote_.Taper("SEX");
  pilote_.Taper("2");
  Cliquer(decoupage, "CbLancer");
  EXPECT_TRUE(bureau_.Texte().contains("Nombre de mots différents 8 ")) << bureau_.Texte().toStdString();
  EXPECT_EQ(bureau_.Lire("ENR.POS"), "ENR\r\n 10 \r\nSEX   1 2\r\n");

  auto& table = bureau_.Demander<TabMot>("mnuTabMot");
  Cliquer(table, "CbLancer");
  EXPECT_EQ(Etiquette(table, "TextMsg"), "Aucune question n'est choisie comme active");
  CliquerLigne(table, "ListVar1", 0);
  Cliquer(table, "BoutActPlus");
  Taper(table, "TBFreq", "1");
  bureau_.Fenetre().ServicesDesFormes().session.limiteDepassements = 0;  // as the creation of modalities chose it
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, table, [&] { Cliquer(table, "CbLancer"); }),
            "quelvar-batch --niveau 2 tabmot ENR questions=SEX frequence=1 limite=0");
  EXPECT_TRUE(bureau_.Texte().contains("Nombre de mots écrits en sortie  8 ")) << bureau_.Texte().toStdString();

  auto& lignes = bureau_.Demander<TabMotAgreg>("mnuTabMotAgreg");
  EXPECT_FALSE(Actif(lignes, "OptFac"));
  Cliquer(lignes, "BtEnreg");
  EXPECT_EQ(Etiquette(lignes, "TextMsg"), "Il n'y a pas de mots à regrouper");
  Cliquer(lignes, {"OptLong", "BtTri"});
  EXPECT_EQ(Lignes(lignes, "ListLignSuppl").last(), "   2           travtravail   ");
  DoubleCliquer(lignes, "ListLignSuppl", 7);
  Concord* concordance = Concordance();
  EXPECT_TRUE(Etiquette(*concordance, "TextInfo").startsWith("Concordance de : travail\n2 ligne(s) de ENR.DAT\n"));
  Cliquer(*concordance, "OptGauche");
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, *concordance, [] {}),
            "quelvar-batch --niveau 2 concordance ENR mots=travail ordre=gauche");
  Taper(*concordance, "TextMots", "rire, le");
  Cliquer(*concordance, "BoutChercher");
  EXPECT_TRUE(Etiquette(*concordance, "TextInfo").startsWith("Concordance de : rire, le\n3 ligne(s)"));
  Cliquer(*concordance, "BoutCopier");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), Etiquette(*concordance, "TextInfo"));
  pilote_.Choisir(QString::fromStdString((bureau_.Dossier() / "c.txt").string()));
  Cliquer(*concordance, "BoutEnregS");
  EXPECT_TRUE(bureau_.Lire("c.txt").starts_with("Concordance de : rire, le\r\n3 ligne(s) de ENR.DAT\r\n\r\n"));
  Cliquer(*concordance, "BoutQuitter");
  auto& liste = Bureau::Dans<QListWidget>(lignes, "ListLignSuppl");
  liste.clearSelection();
  for (const int ligne : {6, 7}) liste.item(ligne)->setSelected(true);
  // A double click reads one word, marked or not, and leaves the rows that are chosen.
  for (const auto& [ligne, touche, mot] :
       {std::tuple{7, Qt::NoModifier, "travail"}, {6, Qt::ControlModifier, "travailler"}, {3, Qt::NoModifier, "le"}}) {
    DoubleCliquer(lignes, "ListLignSuppl", ligne, touche);
    concordance = Concordance();
    EXPECT_TRUE(Etiquette(*concordance, "TextInfo").startsWith(QStringLiteral("Concordance de : %1\n").arg(mot)));
    Cliquer(*concordance, "BoutQuitter");
    QStringList marquees = Lignes(lignes, "ListLignSuppl").filter(QStringLiteral(" A agréger "));
    EXPECT_EQ(marquees.size(), 2) << mot;
  }
  Cliquer(lignes, "BtEnreg");
  EXPECT_TRUE(Etiquette(lignes, "TextMsg").startsWith("Il faut indiquer le nom"));
  Taper(lignes, "TextModLign", "travail");
  Cliquer(lignes, "BtEnreg");
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, lignes, [&] { Cliquer(lignes, "BtFin"); }),
            "quelvar-batch --niveau 2 tabmotagreg ENR agreger== tri=alphabetique agreger=travail=travailler,travail");
  EXPECT_TRUE(bureau_.Lire("ENS.brt").ends_with("   321travail\r\n")) << bureau_.Lire("ENS.brt");
  EXPECT_EQ(bureau_.Lire("ENS.POS"), bureau_.Lire("ENR.POS"));

  auto& agregees = bureau_.Demander<TabMotAgreg>("mnuTabMotAgreg");
  DoubleCliquer(agregees, "ListLignSuppl", 6);
  concordance = Concordance();
  EXPECT_TRUE(Etiquette(*concordance, "TextInfo")
                  .startsWith("Concordance de : travail (travailler, travail)\n3 ligne(s) de ENS.DAT\n\n"));
  Cliquer(*concordance, "BoutChercher");
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, *concordance, [] {}),
            "quelvar-batch --niveau 2 concordance ENS mots=travailler,travail");
  Taper(*concordance, "TextMots", "travail");
  Cliquer(*concordance, "BoutChercher");
  EXPECT_TRUE(Etiquette(*concordance, "TextInfo")
                  .contains("Ce sont les lignes du mot travail seul ; la ligne travail du tableau (fréquence 3)"));
}

TEST_F(FormesDuTexte, AnnulerUnNomArreteLeDecoupageEtRienNeChange) {
  for (const int avant : {0, 1}) {  // boxes that are answered before the one that is cancelled
    auto& decoupage = bureau_.Demander<SaisieMot>("mnuImpMot");
    Taper(decoupage, "TbPos", "1");
    if (avant == 1) pilote_.Taper("SEX");
    pilote_.Abandonner();
    Cliquer(decoupage, "CbLancer");
    EXPECT_EQ(bureau_.Texte(), "Arrêt volontaire du programme\n");
    EXPECT_FALSE(bureau_.Existe("ENQ.DAT"));
    EXPECT_FALSE(bureau_.Existe("ENQ.POS"));
  }
  // Accepted as it stands, a name leaves its position out.
  auto& decoupage = bureau_.Demander<SaisieMot>("mnuImpMot");
  Taper(decoupage, "TbPos", "1");
  pilote_.Cliquer("OK");
  Cliquer(decoupage, "CbLancer");
  EXPECT_EQ(bureau_.Lire("ENQ.POS"), "ENQ\r\n 10 \r\n");
  auto& second = bureau_.Demander<SaisieMot>("mnuImpMot");
  Taper(second, "TbPos", "1");
  Cliquer(second, {"OptSupr", "OpFichAuxY"});
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, second, [&] { Cliquer(second, "CbLancer"); }),
            "quelvar-batch --niveau 2 saisiemot ENQ position=1 vides=supprimees auxiliaires=oui");
}

TEST_F(FormesDuTexte, UnMotQuiContientUneVirguleSeCherche) {
  bureau_.Ecrire("ENQ.DAT", "1oui,oui,      $$" + std::string(30, '*') + "oui, non" + std::string(37, ' ') + "\r\n");
  OuvrirConcord(bureau_.Fenetre().ServicesDesFormes(), quelvar::text::CherchesDesMots({"oui,"}));
  Concord* concordance = Concordance();
  for (int fois = 0; fois < 2; ++fois) {
    EXPECT_TRUE(Etiquette(*concordance, "TextInfo").contains("1 ligne(s) de ENQ.DAT"));
    Cliquer(*concordance, "BoutChercher");
  }
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, *concordance, [] {}),
            "quelvar-batch --niveau 2 concordance ENQ 'mots=oui\\,'");
}

TEST_F(FormesDuTexte, LaCommandeGardeLesSignesDesNomsOuDitPourquoiIlNYEnAPas) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n LIGN=3 LSUP=0 COL=3 FMT=1 DE=0 \r\nS=X1   H\r\nSEX2   F\r\nSEX2   G\r\n");
  bureau_.Ecrire("ENQ.BRT", "   2111a=b\r\n   3121deux\r\n   3121deux\r\n");
  auto& forme = bureau_.Demander<SuplMot>("mnuSupLignes");
  CliquerLigne(forme, "ListColSuppl", 1);
  EXPECT_EQ(CommandeMontree(pilote_, forme), "(aucune : deux colonnes ont le même nom)");
  CliquerLigne(forme, "ListColSuppl", 1);
  CliquerLigne(forme, "ListLignSuppl", 1);
  EXPECT_EQ(CommandeMontree(pilote_, forme), "(aucune : deux lignes ont le même nom)");
  CliquerLigne(forme, "ListLignSuppl", 1);
  CliquerLigne(forme, "ListLignSuppl", 0);
  CliquerLigne(forme, "ListRecapLign", 0);
  Taper(forme, "TextModLign", "c=d");
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, "TextModLign"), Qt::Key_Return);
  CliquerLigne(forme, "ListRecapCol", 0);
  Taper(forme, "TextModCol", "Homme");
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, "TextModCol"), Qt::Key_Return);
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, forme, [&] { Cliquer(forme, "BoutEnreg"); }),
            "quelvar-batch --niveau 2 suplmot ENQ lignes-sup=a=b 'intitule-colonne=S\\=X1=Homme' "
            "'intitule-ligne=a\\=b=c=d'");
}

TEST_F(FormesDuTexte, UnTableauRefaitPendantQueSaFenetreEstOuverteNEstPasRemplace) {
  const std::string mod = "ENQ\r\n LIGN=2 LSUP=0 COL=2 FMT=1 DE=0 \r\nSEX1   H\r\nSEX2   F\r\n";
  bureau_.Ecrire("ENQ.MOD", mod);
  bureau_.Ecrire("ENQ.BRT", "   211un\r\n   312deux\r\n");
  auto& statuts = bureau_.Demander<SuplMot>("mnuSupLignes");
  CliquerLigne(statuts, "ListLignSuppl", 0);
  auto& lignes = bureau_.Demander<TabMotAgreg>("mnuTabMotAgreg");
  Bureau::Dans<QListWidget>(lignes, "ListLignSuppl").selectAll();
  Taper(lignes, "TextModLign", "tout");
  Cliquer(lignes, "BtEnreg");
  const std::string neuf = "   211un\r\n   330deux\r\n";
  bureau_.Ecrire("ENQ.BRT", neuf);
  Cliquer(statuts, "BoutEnreg");
  Cliquer(lignes, "BtFin");
  for (const QWidget* forme : std::initializer_list<const QWidget*>{&statuts, &lignes})
    EXPECT_TRUE(Etiquette(*forme, "TextMsg").contains("a été modifié depuis l'ouverture de cette fenêtre"));
  EXPECT_EQ(bureau_.Lire("ENQ.BRT"), neuf);
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"), mod);
  EXPECT_FALSE(bureau_.Existe("ENR.brt"));
}

TEST_F(FormesDuTexte, LeStatutDesLignesEtDesColonnesSEnregistre) {
  bureau_.Ecrire("ENQ.MOD", "ENQ\r\n LIGN=2 LSUP=0 COL=2 FMT=1 DE=0 \r\nSEX1   H\r\nSEX2   F\r\n");
  bureau_.Ecrire("ENQ.BRT", "   211un\r\n   312deux\r\n");
  auto& forme = bureau_.Demander<SuplMot>("mnuSupLignes");
  CliquerLigne(forme, "ListColSuppl", 1);
  CliquerLigne(forme, "ListLignSuppl", 0);
  EXPECT_EQ(Lignes(forme, "ListColSuppl"), (QStringList{"SEX1   H", "SEX2 S F"}));
  EXPECT_EQ(Lignes(forme, "ListLignSuppl"), (QStringList{"   2 S un", "   3   deux"}));
  auto& liste = Bureau::Dans<QListWidget>(forme, "ListLignSuppl");
  const auto milieu = [&](int ligne) { return liste.visualItemRect(liste.item(ligne)).center(); };
  QTest::mouseClick(liste.viewport(), Qt::LeftButton, Qt::ShiftModifier, milieu(1));
  EXPECT_EQ(Lignes(forme, "ListLignSuppl"), (QStringList{"   2   un", "   3 S deux"}));
  QTest::mouseClick(liste.viewport(), Qt::LeftButton, Qt::ControlModifier, milieu(0));
  EXPECT_EQ(Lignes(forme, "ListLignSuppl"), (QStringList{"   2 S un", "   3 S deux"}));
  QTest::mousePress(liste.viewport(), Qt::LeftButton, {}, milieu(0));
  QTest::mouseMove(liste.viewport(), milieu(1));
  QTest::mouseRelease(liste.viewport(), Qt::LeftButton, {}, milieu(1));
  EXPECT_EQ(Lignes(forme, "ListLignSuppl"), (QStringList{"   2   un", "   3   deux"})) << "drawn over both";
  CliquerLigne(forme, "ListLignSuppl", 0);
  CliquerLigne(forme, "ListRecapLign", 1);
  Taper(forme, "TextModLign", "trois fois");
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, "TextModLign"), Qt::Key_Return);
  CliquerLigne(forme, "ListRecapCol", 0);
  Taper(forme, "TextModCol", "Homme");
  QTest::keyClick(&Bureau::Dans<QLineEdit>(forme, "TextModCol"), Qt::Key_Return);
  EXPECT_EQ(Lignes(forme, "ListRecapCol").first(), "SEX1   Homme");
  EXPECT_EQ(FaitCommeLaCommande(bureau_, pilote_, forme, [&] { Cliquer(forme, "BoutEnreg"); }),
            "quelvar-batch --niveau 2 suplmot ENQ colonnes-sup=SEX2 lignes-sup=un intitule-colonne=SEX1=Homme "
            "'intitule-ligne=deux=trois fois'");
  EXPECT_EQ(bureau_.Lire("ENQ.BRT"), "   312trois fois\r\n   211un\r\n");
  EXPECT_EQ(bureau_.Lire("ENQ.MOD"), "ENQ\r\n IMAX=2 JMAX=2 ISUP=1 FMT=1 \r\nSEX1   Homme\r\nSEX2 S F\r\n");
  EXPECT_EQ(bureau_.Texte(), "Fin normale des modifications de modalités, passer à l'étape suivante\n");
}

}  // namespace
