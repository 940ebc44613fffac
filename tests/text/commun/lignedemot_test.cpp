#include "text/commun/lignedemot.h"

#include <gtest/gtest.h>

#include "text/lignedemot.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

TEST(LargeurDesCaracteristiques, FoundByTheLengthThenByTheSign) {
  EXPECT_EQ(LargeurDesCaracteristiques(essai::Ligne("123", "a$$", "a$$b").substr(0, 94)), 3U);
  EXPECT_EQ(LargeurDesCaracteristiques("12travtravail   $$ et le reste"), 2U);
  EXPECT_EQ(LargeurDesCaracteristiques("112"), std::nullopt);
}

}  // namespace
}  // namespace quelvar
