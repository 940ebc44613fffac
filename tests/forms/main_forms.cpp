#include <gtest/gtest.h>

#include <QApplication>

#include "forms/cadre/application.h"
#include "support/environnement.h"

using namespace quelvar::forms;

int main(int argc, char** argv) {
  essai::FixerEnvironnement();
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  quelvar::forms::PreparerApplication();
  return RUN_ALL_TESTS();
}
