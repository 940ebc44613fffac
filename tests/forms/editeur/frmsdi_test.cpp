// The editor as its user works it: keys, menu shortcuts, boxes.
#include "forms/editeur/frmsdi.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTextBlock>
#include <filesystem>

#include "forms/editeur/edittexte.h"
#include "forms/editeur/frmfind.h"
#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Pilote;
using quelvar::forms::EditTexte;
using quelvar::forms::frmSDI;

class FrmSDI : public testing::Test {
 protected:
  frmSDI& Ouvrir(const char* nom, frmSDI::Genre genre = frmSDI::Genre::Editeur) {
    editeur_ = std::make_unique<frmSDI>(quelvar::forms::ServicesEditeur{reglages, [this] { ++aides; },
                                                                        [this](const QString& fichier) {
                                                                          lecteurs << fichier;
                                                                          return true;
                                                                        }},
                                        genre);
    editeur_->show();
    essai::Activer(*editeur_);
    ouvert = nom == nullptr || editeur_->Ouvrir(Chemin(nom));
    return *editeur_;
  }
  QString Chemin(const char* nom) const { return QString::fromStdString((dossier_.Chemin() / nom).string()); }
  void Ecrire(const char* nom, std::string_view octets) const { essai::EcrireOctets(dossier_.Chemin() / nom, octets); }
  std::string Lire(const char* nom) const { return quelvar::LireOctets(dossier_.Chemin() / nom); }
  // Another program writes the file, and the user comes back to the editor.
  void ChangerAilleurs(const char* nom, std::string_view octets) {
    Ecrire(nom, octets);
    Revenir();
  }
  void Revenir() {
    QWidget ailleurs;
    ailleurs.show();
    essai::Activer(ailleurs);
    essai::Activer(*editeur_);
  }
  EditTexte& Texte() { return Bureau::Dans<EditTexte>(*editeur_, "TexteEd"); }
  QString Etat(const char* libelle) { return Bureau::Dans<QLabel>(*editeur_, libelle).text(); }
  void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier) {
    essai::Activer(*editeur_);  // a box that closes leaves no window active here
    QTest::keyClick(&Texte(), touche, avec);
  }
  // The keys of a French keyboard, accents included.
  void Taper(const char* texte) {
    for (const QChar caractere : QString::fromUtf8(texte))
      QTest::sendKeyEvent(QTest::Click, &Texte(), Qt::Key_unknown, QString(caractere), Qt::NoModifier);
  }

  essai::DossierTemporaire dossier_;
  quelvar::Reglages reglages = essai::ReglagesEnMemoire();
  std::unique_ptr<frmSDI> editeur_;
  QStringList lecteurs;
  int aides = 0;
  bool ouvert = false;
};

TEST_F(FrmSDI, TypedTextIsSavedAsTheFileWas) {
  struct Cas {
    const char* avant;
    const char* tape;  // at the start of line 2, then Return
    const char* apres;
    const char* forme;
  };
  const Cas cas[] = {
      {"ENQ\r\n 3\r\n", "été€", "ENQ\r\n\xE9t\xE9\x80\r\n 3\r\n", "Windows-1252, CR LF"},
      {"ENQ\n 3\n\x1A", "a", "ENQ\na\n 3\n\x1A", "Windows-1252, LF"},
      {"ENQ\r\nx\x81\xA0\n", "b", "ENQ\r\nb\r\nx\x81\xA0\n", "Windows-1252, CR LF (fins mêlées)"},
      {"ENQ\n\xC3\xA9\n", "Ŵ", "ENQ\n\xC5\xB4\n\xC3\xA9\n", "UTF-8, LF"},
      {"ENQ\n", "Ŵ", "ENQ\n?\n", "Windows-1252, LF"},
  };
  for (const Cas& c : cas) {
    Ecrire("ENQ.POS", c.avant);
    Ouvrir("ENQ.POS");
    EXPECT_EQ(Etat("LabelForme"), QString::fromUtf8(c.forme));
    Touche(Qt::Key_Down);
    Taper(c.tape);
    Touche(Qt::Key_Return);
    EXPECT_TRUE(editeur_->isWindowModified());
    Touche(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(editeur_->isWindowModified());
    EXPECT_EQ(Lire("ENQ.POS"), c.apres);
  }
}

TEST_F(FrmSDI, PositionSelectionAndOverwriting) {
  Ecrire("ENQ.DAT", "1234567890\r\nabc\r\n");
  Ouvrir("ENQ.DAT");
  EXPECT_EQ(Etat("LabelPosition"), "Ligne 1, position 1");
  for (int i = 0; i < 3; ++i) Touche(Qt::Key_Right);
  Touche(Qt::Key_Right, Qt::ShiftModifier);
  Touche(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Etat("LabelPosition"), "Ligne 1, position 6");
  EXPECT_EQ(Etat("LabelSelection"), "Sélection : 2");
  Touche(Qt::Key_Left);
  Touche(Qt::Key_Insert);
  EXPECT_EQ(Etat("LabelFrappe"), "RFP");
  Taper("xy");
  EXPECT_EQ(Texte().toPlainText(), "123xy67890\nabc\n");
  Touche(Qt::Key_Insert);
  Taper("z");
  EXPECT_EQ(Texte().toPlainText(), "123xyz67890\nabc\n");
  for (int i = 0; i < 4; ++i) Touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Texte().toPlainText(), "1234567890\nabc\n");
  EXPECT_FALSE(editeur_->isWindowModified());
  // With Shift, Return is no soft end of line.
  Touche(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Texte().blockCount(), 4);
}

TEST_F(FrmSDI, TabAndSoftHyphenTakeOnePositionUnderTheRuler) {
  Ecrire("ENQ.DAT",
         "1\t3\t\t\xAD"
         "78\r\n12345678\r\n");
  Ouvrir("ENQ.DAT");
  const QTextDocument& document = *Texte().document();
  for (int position = 0; position <= 8; ++position) {
    QTextCursor mele(document.firstBlock());
    mele.setPosition(position);
    QTextCursor chiffres(document.lastBlock().previous());
    chiffres.setPosition(chiffres.position() + position);
    EXPECT_EQ(Texte().cursorRect(mele).x(), Texte().cursorRect(chiffres).x()) << position;
  }
}

TEST_F(FrmSDI, PastedTextFitsTheFile) {
  Ouvrir(nullptr);
  QApplication::clipboard()->setText(QString::fromUtf8("e\u0301t\u00A0\U0001F600\r\nfin"));
  Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Texte().document()->toRawText(), QString::fromUtf8("é"
                                                               "t\u00A0?\u2029"
                                                               "fin"));
  Touche(Qt::Key_A, Qt::ControlModifier);
  Touche(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QString::fromUtf8("ét\u00A0?\nfin"));
}

TEST_F(FrmSDI, NewFileIsMadeByTheSave) {
  Ouvrir("ENQ.DES");
  EXPECT_TRUE(ouvert);
  Taper("Descripteur");
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Lire("ENQ.DES"), "Descripteur");

  Pilote pilote;
  pilote.Choisir(Chemin("autre.txt"));
  Touche(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Lire("autre.txt"), "Descripteur");
  EXPECT_TRUE(editeur_->windowTitle().startsWith("autre.txt"));
  EXPECT_EQ(quelvar::LireRecent(reglages, quelvar::forms::kRecentsEditeur, 1), Chemin("autre.txt").toStdString());
  EXPECT_EQ(quelvar::LireRecent(reglages, quelvar::forms::kRecentsEditeur, 2), Chemin("ENQ.DES").toStdString());
}

TEST_F(FrmSDI, RecentFilesOpenAndVanishedOnesAreDisabled) {
  Ecrire("un.pos", "un");
  Ecrire("deux.pos", "deux");
  Ouvrir("un.pos");
  editeur_->Ouvrir(Chemin("deux.pos"));
  std::filesystem::remove(dossier_.Chemin() / "deux.pos");
  auto& menu = Bureau::Dans<QMenu>(*editeur_, "mnuRecents");
  emit menu.aboutToShow();
  ASSERT_EQ(menu.actions().size(), 2);
  EXPECT_FALSE(menu.actions()[0]->isEnabled());
  menu.actions()[1]->trigger();
  EXPECT_EQ(Texte().toPlainText(), "un");
}

TEST_F(FrmSDI, FindsAndReplacesFromTheDialog) {
  Ecrire("ENQ.POS", "SEX 1\r\nAGE 2\r\nSEX 3\r\n");
  Ouvrir("ENQ.POS");
  Touche(Qt::Key_H, Qt::ControlModifier);
  auto* dialogue = editeur_->findChild<quelvar::forms::frmFind*>();
  ASSERT_NE(dialogue, nullptr);
  QTest::keyClicks(&Bureau::Dans<QLineEdit>(*dialogue, "TextCherche"), "sex");
  QTest::keyClick(&Bureau::Dans<QLineEdit>(*dialogue, "TextCherche"), Qt::Key_Return);
  EXPECT_EQ(Texte().textCursor().selectionStart(), 0);
  QTest::keyClick(&Texte(), Qt::Key_F3);
  EXPECT_EQ(Texte().textCursor().selectionStart(), 12);
  QTest::keyClick(&Texte(), Qt::Key_F3);
  EXPECT_EQ(Texte().textCursor().selectionStart(), 0);
  EXPECT_EQ(essai::Etiquette(*dialogue, "LabelResultat"), "Reprise au début du texte");
  QTest::keyClick(&Texte(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Texte().textCursor().selectionStart(), 12);

  essai::Cliquer(*dialogue, "ChkBoucle");
  essai::Cliquer(*dialogue, "BoutSuivant");
  EXPECT_EQ(essai::Etiquette(*dialogue, "LabelResultat"), QString::fromUtf8("« sex » est introuvable"));

  QTest::keyClicks(&Bureau::Dans<QLineEdit>(*dialogue, "TextRemplace"), "SXE");
  essai::Cliquer(*dialogue, "BoutRemplacer");
  EXPECT_EQ(Texte().toPlainText(), "SEX 1\nAGE 2\nSXE 3\n");
  essai::Cliquer(*dialogue, "BoutToutRemplacer");
  EXPECT_EQ(Texte().toPlainText(), "SXE 1\nAGE 2\nSXE 3\n");
  EXPECT_EQ(essai::Etiquette(*dialogue, "LabelResultat"), "1 remplacement");
}

TEST_F(FrmSDI, GoesToALine) {
  Ecrire("ENQ.DAT", "1\r\n2\r\n3\r\n4");
  Ouvrir("ENQ.DAT");
  Pilote pilote;
  pilote.Taper("3");
  Touche(Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(Etat("LabelPosition"), "Ligne 3, position 1");
}

// What happens to a text that is not saved, by the button chosen.
TEST_F(FrmSDI, ClosingAsksAboutAnUnsavedText) {
  struct Cas {
    const char* bouton;
    bool ferme;
    const char* fichier;
  };
  const Cas cas[] = {{"Annuler", false, "avant\r\n"}, {"Non", true, "avant\r\n"}, {"Oui", true, "xavant\r\n"}};
  for (const Cas& c : cas) {
    Ecrire("ENQ.POS", "avant\r\n");
    Ouvrir("ENQ.POS");
    Taper("x");
    Pilote pilote;
    pilote.Cliquer(c.bouton);
    EXPECT_EQ(editeur_->close(), c.ferme) << c.bouton;
    EXPECT_EQ(Lire("ENQ.POS"), c.fichier) << c.bouton;
  }
}

TEST_F(FrmSDI, ChangeOnTheDiskIsNoticedOnReturn) {
  Ecrire("ENQ.POS", "un\r\ndeux\r\n");
  Ouvrir("ENQ.POS");
  Touche(Qt::Key_Down);
  {
    Pilote pilote;
    pilote.Cliquer("Oui");
    ChangerAilleurs("ENQ.POS", "trois\r\nquatre\r\n");
    EXPECT_EQ(Texte().toPlainText(), "trois\nquatre\n");
    EXPECT_EQ(Texte().Ligne(), 2);
  }
  {
    Pilote pilote;
    pilote.Cliquer("Non");
    ChangerAilleurs("ENQ.POS", "cinq\r\n");
    EXPECT_EQ(Texte().toPlainText(), "trois\nquatre\n");
    EXPECT_TRUE(editeur_->isWindowModified());
    Revenir();  // asked once
  }
  {
    Pilote pilote;
    pilote.Cliquer("OK");
    std::filesystem::remove(dossier_.Chemin() / "ENQ.POS");
    Revenir();
    ASSERT_EQ(pilote.Vues().size(), 1);
    EXPECT_TRUE(pilote.Vues()[0].contains("n'est plus sur le disque"));
  }
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Lire("ENQ.POS"), "trois\r\nquatre\r\n");
}

TEST_F(FrmSDI, TheWorkOfAnotherIsNotWrittenOverSilently) {
  Ecrire("ENQ.POS", "un\r\n");
  Ouvrir("ENQ.POS");
  Taper("x");
  Ecrire("ENQ.POS", "ailleurs\r\n");
  Pilote pilote;
  pilote.Cliquer("Annuler");
  QTest::keyClick(&Texte(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Lire("ENQ.POS"), "ailleurs\r\n");
  pilote.Cliquer("Non");
  pilote.Choisir(Chemin("copie.pos"));
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Lire("ENQ.POS"), "ailleurs\r\n");
  EXPECT_EQ(Lire("copie.pos"), "xun\r\n");
}

TEST_F(FrmSDI, FailuresKeepTheText) {
  std::filesystem::create_directory(dossier_.Chemin() / "sous");
  Ecrire("sous/ENQ.POS", "un\r\n");
  Ouvrir("sous/ENQ.POS");
  Taper("x");
  std::filesystem::remove_all(dossier_.Chemin() / "sous");
  Pilote pilote;
  pilote.Cliquer("OK");
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Texte().toPlainText(), "xun\n");
  EXPECT_TRUE(editeur_->isWindowModified());
  pilote.Cliquer("Non");  // the text that is not saved
  pilote.Cliquer("OK");
  EXPECT_FALSE(editeur_->Ouvrir(QString::fromStdString(dossier_.Chemin().string())));
  EXPECT_EQ(Texte().toPlainText(), "xun\n");
}

TEST_F(FrmSDI, AFileBeyondTheCapacityGoesToTheViewer) {
  Ecrire("GROS.DAT", "x");
  std::filesystem::resize_file(dossier_.Chemin() / "GROS.DAT", (std::uintmax_t{64} << 20) + 1);
  Pilote pilote;
  pilote.Cliquer("Oui");
  Ouvrir("GROS.DAT");
  EXPECT_FALSE(ouvert);
  EXPECT_TRUE(pilote.Vues()[0].startsWith("Le fichier GROS.DAT est trop grand pour l'éditeur"));
  EXPECT_EQ(lecteurs, QStringList(Chemin("GROS.DAT")));
}

std::string Lignes(int nombre) {
  std::string octets;
  for (int i = 1; i <= nombre; ++i) octets += "ligne " + std::to_string(i) + " " + std::string(80, '.') + "\r\n";
  return octets;
}

TEST_F(FrmSDI, ALongFileIsWholeWhenItIsSavedAtOnce) {
  const std::string octets = Lignes(40'000);
  Ecrire("LONG.DAT", octets);
  Ouvrir("LONG.DAT");
  EXPECT_TRUE(Texte().EnChargement());
  Taper("x");  // not before the text is there
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(Texte().EnChargement());
  EXPECT_EQ(Lire("LONG.DAT"), octets);
  Taper("x");
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Lire("LONG.DAT"), "x" + octets);
}

TEST_F(FrmSDI, TheViewerReadsAndWritesNothing) {
  Ecrire("ENQ.TAP", "Tri \xE0 plat\r\n");
  Ouvrir("ENQ.TAP", frmSDI::Genre::Lecteur);
  Taper("x");
  QApplication::clipboard()->setText("x");
  Touche(Qt::Key_V, Qt::ControlModifier);
  Touche(Qt::Key_Delete);
  Touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Texte().toPlainText(), "Tri à plat\n");
  EXPECT_FALSE(editeur_->isWindowModified());
  Touche(Qt::Key_F1);
  EXPECT_EQ(aides, 1);
  Pilote pilote;
  pilote.Choisir(Chemin("ENQ.pdf"));
  Bureau::Dans<QAction>(*editeur_, "mnuPDF").trigger();
  EXPECT_EQ(Lire("ENQ.pdf").substr(0, 5), "%PDF-");
}

TEST_F(FrmSDI, TheViewerShowsALongFileInParts) {
  const int lignes = 200'000;  // 19 Mo: three parts
  std::string octets = Lignes(lignes) + "aiguille\r\n";
  octets[93] = '\0';  // a byte that is no character does not shorten the text
  Ecrire("LONG.TCR", octets);
  Ouvrir("LONG.TCR", frmSDI::Genre::Lecteur);
  EXPECT_TRUE(editeur_->windowTitle().startsWith("LONG.TCR (partie 1 sur 3)"));
  Touche(Qt::Key_F, Qt::ControlModifier);
  auto* dialogue = editeur_->findChild<quelvar::forms::frmFind*>();
  auto& cherche = Bureau::Dans<QLineEdit>(*dialogue, "TextCherche");
  QTest::keyClicks(&cherche, "AIGUILLE");
  QTest::keyClick(&cherche, Qt::Key_Return);
  EXPECT_TRUE(editeur_->windowTitle().startsWith("LONG.TCR (partie 3 sur 3)"));
  EXPECT_EQ(Texte().textCursor().selectedText(), "aiguille");
  cherche.setText("ligne 1 ");
  QTest::keyClick(&cherche, Qt::Key_Return);  // round to the first part
  EXPECT_TRUE(editeur_->windowTitle().startsWith("LONG.TCR (partie 1 sur 3)"));
  EXPECT_EQ(Texte().Ligne(), 1);
  QTest::keyClick(&Texte(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_TRUE(editeur_->windowTitle().startsWith("LONG.TCR (partie 2 sur 3)"));
}

}  // namespace
