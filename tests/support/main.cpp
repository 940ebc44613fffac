#include <gtest/gtest.h>

#include "support/environnement.h"

int main(int argc, char** argv) {
  essai::FixerEnvironnement();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
