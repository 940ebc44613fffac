#include "core/session/generique.h"

#include <gtest/gtest.h>

#include <string>

namespace quelvar {
namespace {

struct Pas {
  std::string avant, apres;
};

TEST(GeneriqueSuivant, StepsTheLastCharacter) {
  const Pas pas[] = {
      {"ENQ0", "ENQ1"}, {"ENQ1", "ENQ2"}, {"ENQ8", "ENQ9"}, {"ENQ9", "ENQA"}, {"ENQ", "ENR"},
      {"ENQY", "ENQZ"}, {"ENQZ", "ENQA"}, {"enqa", "enqb"}, {"enqy", "enqz"}, {"enqz", "enqA"},
      {"ENQ-", "ENQA"}, {"ENQ:", "ENQA"}, {"ENQ@", "ENQA"}, {"ENQ_", "ENQA"}, {"ENQ`", "ENQA"},
      {"ENQ{", "ENQA"}, {"ENQ ", "ENQA"}, {"9", "A"},       {"", ""},
  };
  for (const Pas& p : pas) EXPECT_EQ(GeneriqueSuivant(p.avant), p.apres) << p.avant;
  EXPECT_EQ(GeneriqueSuivant("enqu\xEAt\xE9"), "enqu\xEAtA");
}

}  // namespace
}  // namespace quelvar
