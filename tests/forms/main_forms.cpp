#include <gtest/gtest.h>

#include <QApplication>

#include "forms/cadre/application.h"
#include "support/environnement.h"

int main(int argc, char** argv) {
  essai::FixerEnvironnement();
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  quelvar::PreparerApplication();
  return RUN_ALL_TESTS();
}
