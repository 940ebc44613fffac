// The recovery copy of the editor: a process that is killed, one that goes on, one that ends as it should.
#include "forms/editeur/secours.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include "forms/editeur/editeurs.h"
#include "forms/editeur/edittexte.h"
#include "forms/pilote.h"

using namespace quelvar::forms;

namespace {

using essai::Bureau;
using essai::Pilote;

class CopieDeSecours : public testing::Test {
 protected:
  CopieDeSecours() { essai::EcrireOctets(dossier_.Chemin() / "ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2\r\n"); }
  ~CopieDeSecours() override {
    for (frmSDI* editeur : Ouverts()) delete editeur;
  }
  QString Fichier() const { return QString::fromStdString((dossier_.Chemin() / "ENQ.POS").string()); }
  QString Etat() const { return QString::fromStdString((dossier_.Chemin() / "etat").string()); }
  std::string Lire() const { return quelvar::LireOctets(dossier_.Chemin() / "ENQ.POS"); }
  QStringList Copies() const { return QDir(Etat()).entryList(QDir::Files); }

  // Another program whose editor holds the file with a line more (see main_forms.cpp).
  void Demarrer(QProcess& autre, int cadence) {
    autre.setWorkingDirectory(QFileInfo(Fichier()).path());
    autre.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    autre.start(QCoreApplication::applicationFilePath(), {"--editeur", Etat(), Fichier(), QString::number(cadence)});
    ASSERT_TRUE(autre.waitForReadyRead(20000)) << autre.errorString().toStdString();
  }
  static void Tuer(QProcess& autre, int signal) {
    ASSERT_GT(autre.processId(), 0);
    ::kill(static_cast<pid_t>(autre.processId()), signal);
    ASSERT_TRUE(autre.waitForFinished(20000));
    EXPECT_EQ(autre.exitStatus(), QProcess::CrashExit);
  }
  Editeurs& Suivant() {
    editeurs_ = std::make_unique<Editeurs>(
        fenetre_, ServicesEditeur{essai::ReglagesEnMemoire(), [] {}, [](const QString&) { return false; }, Etat()});
    return *editeurs_;
  }
  static QList<frmSDI*> Ouverts() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QList<frmSDI*> ouverts;
    for (QWidget* fenetre : QApplication::topLevelWidgets())
      if (auto* editeur = qobject_cast<frmSDI*>(fenetre)) ouverts << editeur;
    return ouverts;
  }

  essai::DossierTemporaire dossier_;
  QWidget fenetre_;
  std::unique_ptr<Editeurs> editeurs_;
};

TEST_F(CopieDeSecours, UnSignalMetLeTexteASaufEtLeProgrammeSuivantLePropose) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    SCOPED_TRACE(signal);
    QProcess autre;
    Demarrer(autre, 600'000);
    EXPECT_TRUE(Copies().isEmpty()) << "its time has not come";
    Tuer(autre, signal);
    EXPECT_EQ(Lire(), "ENQ\r\n 3 \r\nSEX   1 2\r\n");
    Pilote pilote;
    pilote.Cliquer("Oui");
    Suivant().ProposerLesSecours();
    EXPECT_TRUE(pilote.Vues().value(0).contains(Fichier()));
    ASSERT_EQ(Ouverts().size(), 1);
    frmSDI& editeur = *Ouverts().first();
    EXPECT_TRUE(editeur.isWindowModified());
    EXPECT_EQ(Bureau::Dans<EditTexte>(editeur, "TexteEd").toPlainText(), "ENQ\n 3 \nSEX   1 2\nAGE   2 3");
    EXPECT_EQ(Copies().size(), 2) << "the copy stays until the text is saved";
    EXPECT_TRUE(editeur.Enregistrer());
    EXPECT_EQ(Lire(), "ENQ\r\n 3 \r\nSEX   1 2\r\nAGE   2 3");
    EXPECT_TRUE(Copies().isEmpty());
    editeurs_.reset();
    essai::EcrireOctets(dossier_.Chemin() / "ENQ.POS", "ENQ\r\n 3 \r\nSEX   1 2\r\n");
  }
}

TEST_F(CopieDeSecours, UnProcessusTueLaisseSaDerniereCopieEtUnVivantLaSienne) {
  QProcess tue;
  QProcess vivant;
  Demarrer(tue, 20);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Copies().size() == 2; }, 20000));
  Demarrer(vivant, 20);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Copies().size() == 4; }, 20000));
  EXPECT_TRUE(Secours::Abandonnes(Etat()).empty());
  Tuer(tue, SIGKILL);
  Pilote pilote;
  pilote.Abandonner();
  Suivant().ProposerLesSecours();
  EXPECT_TRUE(Ouverts().isEmpty());
  EXPECT_EQ(Copies().size(), 4) << "kept for another time";
  pilote.Cliquer("Non");
  editeurs_->ProposerLesSecours();
  EXPECT_EQ(Copies().size(), 2) << "that of the living process";
  editeurs_->ProposerLesSecours();  // nothing is left to be asked
  Tuer(vivant, SIGKILL);
}

TEST_F(CopieDeSecours, UnTexteAbandonneEmporteSaCopie) {
  Suivant().Ouvrir(Fichier());
  ASSERT_EQ(Ouverts().size(), 1);
  auto& texte = Bureau::Dans<EditTexte>(*Ouverts().first(), "TexteEd");
  QTest::keyClicks(&texte, "x");
  editeurs_->MettreASauf();
  EXPECT_EQ(Copies().size(), 2);
  Pilote pilote;
  pilote.Cliquer("Non");
  EXPECT_TRUE(editeurs_->Fermer());
  EXPECT_TRUE(Copies().isEmpty());
}

}  // namespace
