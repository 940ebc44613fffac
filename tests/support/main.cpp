#include "support/environnement.h"

#include <gtest/gtest.h>

int main(int argc, char **argv) {
  essai::FixerEnvironnement();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
