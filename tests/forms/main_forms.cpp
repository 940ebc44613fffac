#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <cstdio>

#include "forms/editeur/editeurs.h"
#include "forms/editeur/edittexte.h"
#include "forms/qt/application.h"
#include "forms/qt/signaux.h"
#include "support/environnement.h"
#include "support/reglages.h"

using namespace quelvar::forms;

namespace {

// A program that is to be killed: "--editeur ETAT FICHIER CADENCE" types a line into the editor, says so and waits.
int TenirUnEditeur(const QStringList& arguments) {
  QWidget fenetre;
  Editeurs editeurs(fenetre, ServicesEditeur{essai::ReglagesEnMemoire(), [] {}, [](const QString&) { return false; },
                                             arguments[2], arguments[4].toInt()});
  editeurs.Ouvrir(arguments[3]);
  for (QWidget* editeur : QApplication::topLevelWidgets())
    if (auto* texte = editeur->findChild<EditTexte*>()) {
      QTest::keyClick(texte, Qt::Key_End, Qt::ControlModifier);
      QTest::keyClicks(texte, "AGE   2 3");
    }
  const Signaux signaux([&] { editeurs.MettreASauf(); });
  std::puts("pret");
  std::fflush(stdout);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  essai::FixerEnvironnement();
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  quelvar::forms::Application application(argc, argv);
  quelvar::forms::PreparerApplication();
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() == 5 && arguments[1] == "--editeur") return TenirUnEditeur(arguments);
  return RUN_ALL_TESTS();
}
