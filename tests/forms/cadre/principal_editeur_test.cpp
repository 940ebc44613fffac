// The menu "Editeur" of the main form.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>

#include "forms/editeur/edittexte.h"
#include "forms/editeur/frmsdi.h"
#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::BureauDe;
using essai::Pilote;
using quelvar::forms::frmSDI;

std::vector<frmSDI*> Editeurs() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  std::vector<frmSDI*> editeurs;
  for (QWidget* fenetre : QApplication::topLevelWidgets())
    if (auto* editeur = qobject_cast<frmSDI*>(fenetre)) editeurs.push_back(editeur);
  return editeurs;
}

class MenuEditeur : public testing::Test {
 protected:
  MenuEditeur() : bureau(1, {{"enq.pos", "ENQ\r\n 3 \r\nSEX   1 2\r\n"}, {"ENQ.DAT", "1\r\n2\r\n1\r\n"}}) {}
  BureauDe bureau;
};

TEST_F(MenuEditeur, CorrectsTheFileThatTheNextRunReads) {
  bureau.Menu("mnuEdPOS");
  ASSERT_EQ(Editeurs().size(), 1U);
  auto& texte = Bureau::Dans<quelvar::forms::EditTexte>(*Editeurs()[0], "TexteEd");
  essai::Activer(*Editeurs()[0]);
  QTest::keyClick(&texte, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClicks(&texte, "PRO   1 2");
  QTest::keyClick(&texte, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(bureau.Lire("enq.pos"), "ENQ\r\n 3 \r\nSEX   1 2\r\nPRO   1 2");

  bureau.Menu("mnuEdPOS");  // the same window
  EXPECT_EQ(Editeurs().size(), 1U);
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(bureau.Texte().contains("Question PRO Position    1"));
}

TEST_F(MenuEditeur, AProgramThatReadsWhatIsNotSavedAsksFirst) {
  bureau.Menu("mnuEdPOS");
  auto& texte = Bureau::Dans<quelvar::forms::EditTexte>(*Editeurs()[0], "TexteEd");
  const auto ajouter = [&](const char* lignes) {
    QTest::keyClick(&texte, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&texte, lignes);
  };
  ajouter("PRO   1 2");
  Pilote pilote;
  pilote.Abandonner();
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(pilote.Vues().value(0).startsWith("Le texte de enq.pos a été modifié dans l'éditeur"));
  EXPECT_FALSE(bureau.Existe("ENQ.TAP"));
  pilote.Cliquer("Non");
  bureau.Menu("mnuTriapl");
  EXPECT_FALSE(bureau.Texte().contains("Question PRO"));
  bureau.Menu("mnuTriapl");  // that text has had its answer
  QTest::keyClick(&texte, Qt::Key_Return);
  ajouter("QUO   1 2");
  bureau.Menu("mnuAPropos");  // reads nothing
  pilote.Cliquer("Oui");
  bureau.Menu("mnuTriapl");
  EXPECT_TRUE(bureau.Texte().contains("Question PRO"));
  EXPECT_EQ(bureau.Lire("enq.pos"), "ENQ\r\n 3 \r\nSEX   1 2\r\nPRO   1 2\r\nQUO   1 2");
}

TEST_F(MenuEditeur, QuittingAsksAboutAnUnsavedText) {
  bureau.Menu("mnuEdMOD");  // not there yet
  auto& texte = Bureau::Dans<quelvar::forms::EditTexte>(*Editeurs()[0], "TexteEd");
  QTest::keyClicks(&texte, "x");
  Pilote pilote;
  pilote.Cliquer("Annuler");
  EXPECT_FALSE(bureau.Fenetre().close());
  EXPECT_TRUE(bureau.Fenetre().isVisible());
  pilote.Cliquer("Oui");
  EXPECT_TRUE(bureau.Fenetre().close());
  EXPECT_EQ(bureau.Lire("ENQ.MOD"), "x");
  EXPECT_TRUE(Editeurs().empty());
}

TEST_F(MenuEditeur, AnyFileInTheEditorOrInTheViewer) {
  const QString fichier = QString::fromStdString((bureau.Dossier() / "ENQ.DAT").string());
  Pilote pilote;
  pilote.Choisir(fichier);
  bureau.Menu("mnuEdAutres");
  ASSERT_EQ(Editeurs().size(), 1U);
  EXPECT_EQ(Editeurs()[0]->Fichier(), fichier);
  pilote.Choisir(fichier);
  bureau.Menu("mnuEdWordpad");
  EXPECT_EQ(bureau.demarres, QStringList("quelvar-lecteur " + fichier));
}

TEST(MenuEditeurSansGenerique, FilesOfTheGenericAreDisabled) {
  Bureau bureau;
  bureau.Ouvrir();
  emit Bureau::Dans<QMenu>(bureau.Fenetre(), "mnuEditeur").aboutToShow();
  EXPECT_FALSE(bureau.MenuActif("mnuEdPOS"));
  EXPECT_TRUE(bureau.MenuActif("mnuEdAutres"));
}

}  // namespace
