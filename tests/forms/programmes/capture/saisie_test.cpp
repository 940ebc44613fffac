#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>

#include "forms/pilote.h"
#include "forms/programmes/capture/saisiedes.h"
#include "forms/programmes/capture/saisief.h"
#include "forms/qt/ecran.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauDe;
using essai::Champ;
using essai::Cliquer;
using essai::ContenuDe;
using essai::Etiquette;
using essai::Lignes;
using essai::Pilote;
using essai::Taper;
using essai::Visible;

void Touches(Saisief& forme, std::initializer_list<Qt::Key> touches) {
  auto& zone = Bureau::Dans<QWidget>(forme, "TextMod");
  for (const Qt::Key touche : touches) QTest::keyClick(&zone, touche);
}
void Ecrire(Saisief& forme, const QString& texte) {
  auto& zone = Bureau::Dans<QWidget>(forme, "TextMod");
  for (const QChar c : texte) {
    QKeyEvent touche(QEvent::KeyPress, c.toUpper().unicode(), Qt::NoModifier, QString(c));
    QApplication::sendEvent(&zone, &touche);
  }
}

}  // namespace

TEST(SaisieDes, DuDescripteurAuPremierEnregistrement) {
  Bureau bureau(1);
  SaisieDes& des = bureau.Demander<SaisieDes>("mnuSaisie");
  EXPECT_FALSE(essai::Actif(des, "BoutSaisie")) << "no question yet";
  Pilote pilote;
  pilote.Cliquer("OK");
  Cliquer(des, "BoutCont");
  EXPECT_EQ(pilote.Vues(), QStringList{"Nom vide"});
  const auto valider = [&](const char* nom, const char* codeMax, const char* genre) {
    Taper(des, "TextMod", nom);
    Cliquer(des, genre);
    auto* ligne = Bureau::Dans<QComboBox>(des, "CodeMax").lineEdit();
    ligne->setFocus();
    ligne->selectAll();
    QTest::keyClicks(ligne, codeMax);
    Cliquer(des, "BoutCont");
  };
  valider("SEX", "2", "OptNum");
  Cliquer(des, "OptAlpha");
  QTest::keyClick(des.focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(des.focusWidget()->objectName(), "CodeMax") << "behind the kinds, and not back to the name";
  EXPECT_EQ(Etiquette(des, "LibelleCodeMax"), "Largeur de la question en caractères");
  valider("NOM", "7", "OptAlpha");
  valider("CP1", "5", "OptNum2");
  EXPECT_EQ(Etiquette(des, "LabelNombre"), "3");
  essai::CliquerLigne(des, "ListVar", 1);
  EXPECT_TRUE(essai::Coche(des, "OptAlpha"));
  valider("NOM", "8", "OptAlpha");
  EXPECT_EQ(Lignes(des, "ListVar"), (QStringList{"SEX     2     ", "NOM     8A    ", "CP1     5A NUM"}));
  Cliquer(des, "BoutSaisie");
  EXPECT_EQ(bureau.Lire("ENQ.DES"), "SEX     2     \r\nNOM     8A    \r\nCP1     5A NUM\r\n");
  Saisief* saisie = bureau.Forme<Saisief>();
  ASSERT_NE(saisie, nullptr);
  Touches(*saisie, {Qt::Key_Right, Qt::Key_Return});
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), "1             \r\n");
}

// What is typed when the descriptor is ended belongs to it, a correction as well as a new question.
TEST(SaisieDes, CeQuiNEstPasValide) {
  Bureau bureau(1);
  SaisieDes& des = bureau.Demander<SaisieDes>("mnuSaisie");
  const auto frapper = [&](const char* nom, const char* codeMax) {
    Taper(des, "TextMod", nom);
    Bureau::Dans<QComboBox>(des, "CodeMax").setEditText(codeMax);
  };
  frapper("SEX", "2");
  Cliquer(des, "BoutCont");
  frapper("AGE", "25");
  essai::CliquerLigne(des, "ListVar", 0);
  EXPECT_EQ(Lignes(des, "ListVar"), (QStringList{"SEX     2     ", "AGE    25     "})) << "not written over";
  frapper("SEX", "3");
  essai::CliquerLigne(des, "ListVar", 0);
  EXPECT_EQ(Bureau::Dans<QComboBox>(des, "CodeMax").currentText(), "2") << "the same line again undoes the correction";
  frapper("SEX", "4");

  const auto refuser = [&](const char* nom, const char* codeMax, const QString& refus, const char* champ) {
    frapper(nom, codeMax);
    Pilote pilote;
    pilote.Cliquer("OK");
    Cliquer(des, "BoutSaisie");
    EXPECT_EQ(pilote.Vues(), QStringList{refus});
    EXPECT_EQ(des.focusWidget()->objectName(), champ);
    EXPECT_FALSE(bureau.Existe("ENQ.DES"));
  };
  refuser("AGE", "4", "Ce nom est déjà celui d'une autre question", "TextMod");
  refuser("SEX", "", "Code max non défini", "CodeMax");
  frapper("SEX", "4");
  Cliquer(des, "BoutSaisie");
  EXPECT_EQ(bureau.Lire("ENQ.DES"), "SEX     4     \r\nAGE    25     \r\n");
  EXPECT_NE(bureau.Forme<Saisief>(), nullptr);
}

// The keyboard alone: behind an alphabetic question the kinds begin again with the short numeric, where Tab goes.
TEST(SaisieDes, LesGenresAuClavier) {
  Bureau bureau(1);
  SaisieDes& des = bureau.Demander<SaisieDes>("mnuSaisie");
  const auto frapper = [&](const char* nom, int bas, const char* codeMax) {
    QTest::keyClicks(des.focusWidget(), nom);
    QTest::keyClick(des.focusWidget(), Qt::Key_Tab);
    for (; bas > 0; --bas) QTest::keyClick(des.focusWidget(), Qt::Key_Down);
    QTest::keyClick(des.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(des.focusWidget(), codeMax);
    QTest::keyClick(des.focusWidget(), Qt::Key_Return);
  };
  essai::Activer(des);
  Bureau::Dans<QLineEdit>(des, "TextMod").setFocus();
  frapper("NOM", 1, "8");
  frapper("CP1", 2, "5");
  frapper("SEX", 0, "2");
  EXPECT_EQ(Lignes(des, "ListVar"), (QStringList{"NOM     8A    ", "CP1     5A NUM", "SEX     2     "}));
  Bureau::Dans<QLineEdit>(des, "TextMod").setText("日AB");
  Pilote pilote;
  pilote.Cliquer("OK");
  Cliquer(des, "BoutCont");
  EXPECT_TRUE(pilote.Vues().join("").startsWith("le caractère 1, \"日\","));
}

TEST(SaisieDes, QuitterSansEnregistrer) {
  Bureau bureau(1);
  SaisieDes& des = bureau.Demander<SaisieDes>("mnuSaisie");
  const QString avant = bureau.Texte();
  Taper(des, "TextMod", "SEX");
  Bureau::Dans<QComboBox>(des, "CodeMax").setEditText("2");
  Cliquer(des, "BoutCont");
  Pilote pilote;
  pilote.Abandonner();  // Escape asks, since the question is in no file
  QTest::keyClick(&des, Qt::Key_Escape);
  EXPECT_NE(bureau.Forme<SaisieDes>(), nullptr);
  Taper(des, "TextMod", "AGE");
  Cliquer(des, "BoutArret");
  EXPECT_EQ(bureau.Forme<SaisieDes>(), nullptr);
  EXPECT_FALSE(bureau.Existe("ENQ.DES"));
  EXPECT_EQ(bureau.Texte(), avant) << "leaving the descriptor writes no report";
}

TEST(Saisief, UnIndividuAuClavier) {
  BureauDe bureau(1, {{"ENQ.DES", "SEX     2     \r\nNOM     8A    \r\nCP1     5A NUM\r\n"},
                      {"ENQ.MOD", "ENQ\r\n\r\nSEX2   Femme\r\n"}});
  Saisief& forme = bureau.Demander<Saisief>("mnuSaisie");
  const auto etat = [&](const char* nom) { return Etiquette(forme, nom); };
  EXPECT_EQ(etat("Label5") + "|" + etat("TextMod") + "|" + etat("Label6") + "|" + etat("Label7"),
            "SEX| 0|NOM      |CP1      ");
  EXPECT_EQ(etat("LabelType") + etat("LabelConseil"), " Numérique de code-max =2 Vide : utiliser le clavier numérique");
  EXPECT_FALSE(Visible(forme, "FrMsg"));
  Touches(forme, {Qt::Key_Return});
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "Enregistrement vide non conservé");
  EXPECT_FALSE(bureau.Existe("ENQ.DAT"));

  Touches(forme, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
  EXPECT_EQ(etat("TextMod") + etat("LabelIntitule"), " 2Femme");
  Touches(forme, {Qt::Key_Down});
  EXPECT_EQ(etat("Label4"), "SEX       2  Femme");
  EXPECT_EQ(etat("Label9"), "Chiffres actifs.  Lettres en minuscules");
  Ecrire(forme, "Du");
  Touches(forme, {Qt::Key_CapsLock, Qt::Key_Space});
  EXPECT_EQ(etat("Label9"), "Chiffres actifs. Lettres en MAJUSCULES");
  // What a dead key makes comes as a committed text; a character that the code page lacks is not taken.
  auto& zone = Bureau::Dans<QWidget>(forme, "TextMod");
  QInputMethodEvent compose;
  compose.setCommitString("ê\u0416");
  QApplication::sendEvent(&zone, &compose);
  Ecrire(forme, "l'");
  EXPECT_EQ(etat("TextMod"), "du ÊL'");
  Touches(forme, {Qt::Key_Tab});
  EXPECT_EQ(etat("Label5"), "FIN");
  EXPECT_EQ(forme.focusWidget(), &zone) << "Tab is a key of the entry";
  Touches(forme, {Qt::Key_Up, Qt::Key_0, Qt::Key_7, Qt::Key_Return});
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), "2du \xCAL'  07   \r\n");
  EXPECT_EQ(bureau.Lire("ENQ.POS"), "ENQ\r\n 1 \r\nSEX   1 2\r\nNOM   2 8A\r\nCP1  10 5A\r\n");
  EXPECT_EQ(etat("LabelFaits") + etat("LabelEnCours") + etat("Label5"), "12SEX");

  Touches(forme, {Qt::Key_Escape});
  QApplication::processEvents();
  EXPECT_EQ(bureau.Forme<Saisief>(), nullptr);
  EXPECT_EQ(bureau.Texte().trimmed(),
            "Interruption de la saisie\nNombre d'enregistrements déjà faits = 1 \n\nFin normale du programme");
  EXPECT_FALSE(bureau.Existe("$$$.prt"));
  EXPECT_EQ(bureau.Fenetre().ServicesDesFormes().session.individus, 1);
}

TEST(Saisief, SaisieDirecteEtTouchesTenues) {
  BureauDe bureau(1, {{"ENQ.DES", "SEX     2     \r\nAGE    25     \r\nENF     9     \r\n"}});
  Saisief& forme = bureau.Demander<Saisief>("mnuSaisie");
  Touches(forme, {Qt::Key_1});
  EXPECT_EQ(Etiquette(forme, "Label5") + Etiquette(forme, "TextMod"), "SEX 0") << "off at the start";
  Cliquer(forme, "CheckDirect");
  Touches(forme, {Qt::Key_1, Qt::Key_2, Qt::Key_5, Qt::Key_4});
  EXPECT_EQ(Etiquette(forme, "Label5"), "FIN");
  auto& zone = Bureau::Dans<QWidget>(forme, "TextMod");
  for (int i = 0; i < 30; ++i) {  // Enter held down: one record, and nothing of the empty ones behind it
    QKeyEvent tenue(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", i > 0);
    QApplication::sendEvent(&zone, &tenue);
  }
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), "1254\r\n");
  Pilote pilote;
  const QString commande = CommandeMontree(pilote, forme);
  EXPECT_TRUE(commande.startsWith("quelvar-batch saisie ENQ directe=oui  # ")) << commande.toStdString();
  EXPECT_EQ(forme.focusWidget(), &zone) << "the keyboard is back on the answer";
}

TEST(Saisief, ArreterDevantLesFautes) {
  BureauDe bureau(1, {{"ENQ.DES", "NUL     0     \r\n"}});
  Saisief& forme = bureau.Demander<Saisief>("mnuSaisie");
  QTest::keyClick(forme.focusWidget(), Qt::Key_Tab);
  QTest::keyClick(forme.focusWidget(), Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(bureau.Forme<Saisief>(), nullptr);
  EXPECT_TRUE(bureau.Texte().contains("déjà faits = 0 \n"));
}

TEST(Saisief, FautesAvantLaPremiereQuestion) {
  BureauDe bureau(1, {{"ENQ.DES", "SEX     2     \r\nNUL     0     \r\n"}, {"ENQ.DAT", "1\r\n"}});
  Saisief& forme = bureau.Demander<Saisief>("mnuSaisie");
  EXPECT_TRUE(
      Etiquette(forme, "TextMsg")
          .startsWith(
              "*** Attention un code numérique a comme code-max 0 à la question  Question NUL    \n*** Erreur : "));
  Touches(forme, {Qt::Key_Right});
  EXPECT_EQ(Etiquette(forme, "TextMod"), " 0") << "the faults come first";
  const auto devant = [&] { return forme.focusWidget()->objectName(); };
  for (const Qt::Key touche : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Up})
    QTest::keyClick(forme.focusWidget(), touche);
  EXPECT_EQ(devant(), "BoutCont") << "these keys scroll the faults";
  QTest::keyClick(forme.focusWidget(), Qt::Key_Right);
  EXPECT_EQ(devant(), "BoutArret");
  QTest::keyClick(forme.focusWidget(), Qt::Key_Tab);
  QTest::keyClick(forme.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(Visible(forme, "FrMsg"));
  EXPECT_EQ(devant(), "TextMod");
  Touches(forme, {Qt::Key_Right});
  EXPECT_EQ(Etiquette(forme, "TextMod"), " 1");
  Pilote pilote;
  pilote.Abandonner();
  Touches(forme, {Qt::Key_Escape});
  EXPECT_NE(bureau.Forme<Saisief>(), nullptr) << "an answer that is not written is not lost unasked";
  Touches(forme, {Qt::Key_Delete});
  Cliquer(forme, "BoutArret");
  QApplication::processEvents();
  EXPECT_TRUE(bureau.Texte().contains("déjà faits = 1 \n"));
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), "1\r\n");
}

TEST(Saisief, RevoirEtCorriger) {
  Bureau bureau(1);
  bureau.Ecrire("ENQ.DES", "SEX     2     \r\nNOM     3A    \r\n");
  std::string donnees;
  for (int i = 0; i < 50; ++i) donnees += "1abc\r\n";
  bureau.Ecrire("ENQ.DAT", donnees);
  bureau.Ouvrir();
  Saisief& forme = bureau.Demander<Saisief>("mnuSaisie");
  Touches(forme, {Qt::Key_F4});
  auto& liste = Bureau::Dans<QListView>(forme, "ListEnreg");
  ASSERT_EQ(forme.focusWidget(), &liste);
  const QSize besoin = ContenuDe(forme).minimumSizeHint();
  EXPECT_TRUE(besoin.width() <= 1024 && besoin.height() <= 768 - 40) << besoin.width() << " x " << besoin.height();
  EXPECT_EQ(Etiquette(forme, "LabelEnCours"), "50 (correction)");
  QTest::keyClick(&liste, Qt::Key_PageUp);
  EXPECT_NE(Etiquette(forme, "LabelEnCours"), "50 (correction)");
  QTest::keyClick(&liste, Qt::Key_Home);
  EXPECT_EQ(Etiquette(forme, "LabelEnCours"), "1 (correction)");
  QTest::keyClick(&liste, Qt::Key_Return);
  Touches(forme, {Qt::Key_Right, Qt::Key_Return});
  EXPECT_EQ(Etiquette(forme, "TextMsg"), "Enregistrement 1 corrigé");
  EXPECT_EQ(Etiquette(forme, "LabelEnCours"), "51") << "back to the next individual";
  donnees[0] = '2';
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), donnees);
  EXPECT_EQ(liste.model()->index(0, 0).data().toString(), "     1  2abc");
  // Escape on a correction that has changed something asks before it goes back.
  Touches(forme, {Qt::Key_F4});
  QTest::keyClick(&liste, Qt::Key_Return);
  Touches(forme, {Qt::Key_Left});
  for (const bool rester : {true, false}) {
    Pilote pilote;
    if (rester) pilote.Abandonner();
    else pilote.Cliquer("OK");
    Touches(forme, {Qt::Key_Escape});
    EXPECT_TRUE(pilote.Vues().join("").startsWith("L'enregistrement en cours n'est pas validé"));
    EXPECT_EQ(Etiquette(forme, "LabelEnCours"), rester ? "1 (correction)" : "51");
  }
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), donnees);
  Touches(forme, {Qt::Key_Right, Qt::Key_F4});
  EXPECT_TRUE(Etiquette(forme, "TextMsg").startsWith("l'enregistrement en cours n'est pas validé"));
  Touches(forme, {Qt::Key_Delete, Qt::Key_F4});
  QTest::keyClick(&liste, Qt::Key_Escape);
  EXPECT_EQ(Etiquette(forme, "LabelEnCours"), "51");
  EXPECT_EQ(bureau.Lire("ENQ.DAT"), donnees);
}
