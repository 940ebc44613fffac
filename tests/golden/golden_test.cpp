// Runs every golden case through the real quelvar-batch, and checks that each program it lists has one.
#include <gtest/gtest.h>

#include "golden/cas.h"
#include "support/environnement.h"

namespace fs = std::filesystem;

namespace {

class ExecutionDeCas : public testing::Test {
 public:
  explicit ExecutionDeCas(fs::path dossier) : dossier_(std::move(dossier)) {}

  void TestBody() override {
    const golden::Cas cas = golden::LireCas(dossier_);
    const golden::Constat constat = golden::ExecuterCas(cas, QUELVAR_BATCH);
    for (const std::string& difference : golden::Differences(cas, constat)) ADD_FAILURE() << difference;
  }

 private:
  fs::path dossier_;
};

TEST(Liste, EveryProgramHasAGoldenCase) {
  const golden::Cas liste{fs::path(QUELVAR_CAS) / "sans-entree", {{{"--liste"}, 0}}, {}};
  const golden::Constat constat = golden::ExecuterCas(liste, QUELVAR_BATCH);
  ASSERT_EQ(constat.statuts[0], 0) << constat.boites;
  const auto programmes = golden::LireListe(constat.sortie);
  ASSERT_FALSE(programmes.empty());
  for (const std::string& programme : programmes) {
    const fs::path dossier = fs::path(QUELVAR_CAS) / programme;
    EXPECT_TRUE(fs::is_directory(dossier) && !fs::is_empty(dossier)) << programme << " has no golden case";
  }
}

}  // namespace

int main(int argc, char** argv) {
  essai::FixerEnvironnement();
  testing::InitGoogleTest(&argc, argv);
  for (const fs::path& dossier : golden::ListerCas(QUELVAR_CAS)) {
    testing::RegisterTest(dossier.parent_path().filename().c_str(), dossier.filename().c_str(), nullptr, nullptr,
                          __FILE__, __LINE__, [dossier]() -> testing::Test* { return new ExecutionDeCas(dossier); });
  }
  return RUN_ALL_TESTS();
}
